#include "practice/page_assets.h"

namespace vorlane::practice {

const std::string_view kPageStyle = R"(
:root{color-scheme:light dark;--ink:#1d2733;--dim:#5f6b7a;--paper:#f4f6f8;--card:#fff;
--line:#d9dfe6;--head:#eef2f6;--link:#0b62b8;--good:#1a7f37;--bad:#c62828;--mark:#fff3c4}
@media (prefers-color-scheme:dark){:root{--ink:#dde4ec;--dim:#93a0af;--paper:#14181d;
--card:#1c2229;--line:#333c47;--head:#252d37;--link:#6cb6ff;--good:#57c46f;--bad:#ff7b72;
--mark:#4a3f12}}
*{box-sizing:border-box}
body{font:15px/1.45 system-ui,sans-serif;margin:0;color:var(--ink);background:var(--paper)}
main{max-width:1280px;margin:0 auto;padding:1rem 1.25rem 3rem}
header{display:flex;flex-wrap:wrap;gap:.6rem 1.5rem;align-items:center}
h1{font-size:1.4rem;margin:.3rem 0}h1 a{color:inherit}
h2{font-size:1.15rem;margin:0 0 .6rem}h3{font-size:1rem;margin:1rem 0 .3rem}
a{color:var(--link);text-decoration:none}a:hover{text-decoration:underline}
form{display:flex;gap:.5rem;flex:1 1 24rem;align-items:center}
input[name=q]{flex:1;min-width:0;font:inherit;padding:.4rem .7rem;border:1px solid var(--line);
border-radius:6px;background:var(--card);color:inherit}
button{font:inherit;padding:.4rem .9rem;border:1px solid var(--line);border-radius:6px;
background:var(--head);color:inherit;cursor:pointer}
section{background:var(--card);border:1px solid var(--line);border-radius:8px;
padding:1rem 1.2rem;margin:1rem 0;overflow-wrap:anywhere}
.kinds{display:flex;flex-wrap:wrap;gap:.4rem;margin:0 0 .6rem;padding:0;list-style:none}
.kinds a{display:block;padding:.15rem .6rem;border:1px solid var(--line);border-radius:99px;
color:inherit}.kinds b{margin-left:.35rem}.note{color:var(--dim);margin:.3rem 0}
.found{background:var(--mark);padding:0 .25em;border-radius:3px}
summary{cursor:pointer;padding:.3rem 0}
details.exchange{border-top:1px solid var(--line)}
details.exchange>summary{display:flex;gap:.9rem;align-items:baseline}
details.exchange>summary::before{content:"\25B8";color:var(--dim)}
details.exchange[open]>summary::before{content:"\25BE"}
.number{color:var(--dim);min-width:2.6rem;text-align:right}.asked{flex:1 1 40%}
.answered{flex:1 1 50%}.good{color:var(--good)}.bad{color:var(--bad)}
.table{overflow-x:auto}table{border-collapse:collapse;width:100%;font-size:.93rem}
th,td{border-bottom:1px solid var(--line);padding:.25rem .6rem;text-align:left;
vertical-align:top}td{overflow-wrap:break-word}th{background:var(--head);font-weight:600;white-space:nowrap}
td.n,th.n{text-align:right;white-space:nowrap;font-variant-numeric:tabular-nums}
.pair{display:grid;grid-template-columns:1fr 1fr;gap:.8rem;margin:.3rem 0 .9rem}
.pair>div{min-width:0}
pre{font:12.5px/1.4 ui-monospace,monospace;background:var(--paper);border:1px solid var(--line);
border-radius:6px;padding:.6rem;white-space:pre-wrap;max-height:22rem;overflow:auto;margin:.2rem 0}
@media (max-width:50rem){.pair{grid-template-columns:1fr}}
)";

const std::string_view kPageScript = R"(
const box = document.querySelector('input[name=q]');
const note = document.getElementById('filtered');
box.addEventListener('input', () => {
  const word = box.value.trim().toLowerCase();
  let count = 0;
  for (const row of document.querySelectorAll('tbody tr, details.exchange')) {
    row.hidden = !row.textContent.toLowerCase().includes(word);
    count += row.hidden ? 0 : 1;
  }
  for (const list of document.querySelectorAll('details.list')) {
    list.hidden = !list.querySelector('tbody tr:not([hidden])');
    list.open = word !== '';
  }
  note.textContent = word === '' ? '' : count + ' in this page. Enter searches what is not in it, too.';
});
)";

}  // namespace vorlane::practice
