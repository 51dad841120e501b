// What the window costs: its start beside that of an empty window, a run of posting
// beside the same run at the console, and the frames of scrolling in a million rows.
// Without a screen it runs on the offscreen platform, which paints all the same.
//
//   desktop_bench [start|post|scroll]   all of them without a word
//   desktop_bench --start NOW           what `vorlane` does until it is ready, begun at
//                                       NOW of the steady clock; tells its seconds

#include <QApplication>
#include <QScrollBar>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/bench_form.h"
#include "bench/child_process.h"
#include "bench/loopback_server.h"
#include "bench/make_csv.h"
#include "form/row_outcome.h"
#include "practice/gateway.h"
#include "shell/application.h"
#include "shell/console/console_face.h"
#include "shell/options.h"
#include "shell/post.h"
#include "shell/ui/grid_view.h"
#include "shell/ui/main_window.h"
#include "sources/record_loading.h"

namespace {

using namespace vorlane;

constexpr int kRounds = 7;
constexpr double kStartAtMost = 1.5;
constexpr double kPostAtMost = 1.25;
constexpr double kFrameAtMost = 0.050;
constexpr std::uint64_t kPostedRows = 5000;
constexpr std::uint64_t kScrolledRows = 1'000'000;

template <class Work>
double Seconds(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

const char* Verdict(bool passed) { return passed ? "pass" : "FAIL"; }

/// A home for programs that are built as their `main` builds them.
class Home {
 public:
  Home() {
    ::setenv("VORLANE_HOME", folder_.Path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
  }
  std::filesystem::path operator/(const std::string& name) const { return folder_ / name; }

 private:
  bench::BenchFolder folder_;
};

void StoreAddress(form::ImportForm& importForm, std::uint16_t port) {
  form::OptionsFields fields = shell::OptionsAsShown(importForm);
  fields.txtPort = std::to_string(port);
  shell::ConfirmOptions(importForm, fields);
}

// The start ----------------------------------------------------------------------

/// The steady clock, which all processes share.
std::string Now() {
  return std::to_string(std::chrono::steady_clock::now().time_since_epoch().count());
}

int StartUntilReady(long long begun) {
  int argumentCount = 1;
  char name[] = "vorlane";
  char* arguments[] = {name, nullptr};
  QApplication desktop(argumentCount, arguments);
  shell::ui::MainWindow window;
  shell::Application application(window);
  window.show();
  if (!window.LoadForm(application.Form(), shell::RunOrder(""))) return EXIT_FAILURE;
  while (!window.windowHandle()->isExposed()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QApplication::processEvents();
  std::printf("%.6f\n", static_cast<double>(std::stoll(Now()) - begun) / 1e9);
  return EXIT_SUCCESS;
}

constexpr const char* kNow = "NOW";

/// Starts a program with the time in the place of `kNow`; it tells when it is ready.
double SecondsToReady(std::vector<std::string> command) {
  // The screen's server is still busy with the end of the window before.
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  std::replace(command.begin(), command.end(), std::string(kNow), Now());
  const bench::Measured started = bench::RunChild(command);
  if (!started.succeeded) throw std::runtime_error(command.front() + " did not start");
  return started.seconds;
}

std::vector<double> Ratios(std::vector<double> times, const std::vector<double>& others) {
  std::transform(times.begin(), times.end(), others.begin(), times.begin(), std::divides<>());
  return times;
}

bool CompareStart() {
  const Home home;
  practice::PracticeServer tally;
  {
    std::istringstream none;
    std::ostringstream unseen;
    shell::console::ConsoleFace face(none, unseen, false);
    shell::Application application(face);
    StoreAddress(application.Form(), tally.Port());
  }
  const std::string window = BENCH_PROGRAMS "/empty_window";
  std::vector<double> empty;
  std::vector<double> text;
  std::vector<double> ours;
  for (int round = 0; round < kRounds; ++round) {
    const double seconds[] = {SecondsToReady({window, kNow}),
                              SecondsToReady({window, kNow, "text"}),
                              SecondsToReady({"/proc/self/exe", "--start", kNow})};
    if (round == 0) continue;  // the libraries come from the disk
    empty.push_back(seconds[0]);
    text.push_back(seconds[1]);
    ours.push_back(seconds[2]);
  }
  const double ratio = bench::Median(Ratios(ours, empty));
  std::printf("start to ready %.3f s, an empty window %.3f s: ratio %.2f, at most %.2f: %s\n",
              bench::Median(ours), bench::Median(empty), ratio, kStartAtMost,
              Verdict(ratio <= kStartAtMost));
  std::printf("  a window with a menu and a line of text %.3f s: %.2f of the empty one\n",
              bench::Median(text), bench::Median(Ratios(text, empty)));
  return ratio <= kStartAtMost;
}

// Posting ------------------------------------------------------------------------

double PostSeconds(form::ImportForm& importForm, const std::string& path, const std::string& type) {
  importForm.cmbCurrentCompanyList.text = "Bench & Sons";
  importForm.SilentRun = true;
  importForm.TabSource = {{"Excel"}, "Excel"};
  importForm.txtFilePath = path;
  sources::PickTable(importForm, type);
  const double seconds = Seconds([&] { shell::Post(importForm); });
  const form::ImportGrid& grid = importForm.GR1;
  const std::string_view status =
      grid.Text(grid.RowCount() - 2, grid.ColumnIndex(form::ImportGrid::kStatusKey));
  if (form::ClassifyDigest(status) != form::Outcome::Created) {
    throw std::runtime_error("The last row was not created: " + std::string(status));
  }
  return seconds;
}

double PostAtConsole(std::uint16_t port, const std::string& path, const std::string& type) {
  std::istringstream none;
  std::ostringstream unseen;
  shell::console::ConsoleFace face(none, unseen, false);
  shell::Application application(face);
  StoreAddress(application.Form(), port);
  return PostSeconds(application.Form(), path, type);
}

double PostInWindow(std::uint16_t port, const std::string& path, const std::string& type) {
  shell::ui::MainWindow window;
  shell::Application application(window);
  window.show();
  StoreAddress(application.Form(), port);
  double seconds = 0;
  window.Attach(application.Form());
  window.Do([&] { seconds = PostSeconds(application.Form(), path, type); });
  return seconds;
}

struct Posted {
  const char* type;
  const char* file;
  std::uint64_t (*write)(const std::string& path, std::uint64_t rows);
};
constexpr Posted kPosted[] = {
    {"LEDGER GROUPS", "LEDGERGROUPS.csv", bench::WriteLedgerGroupsCsv},
    {"TRANSACTIONS", "TRANSACTIONS.csv", bench::WriteVouchersCsv},
};

bool ComparePost() {
  bool passed = true;
  for (const Posted& posted : kPosted) {
    const Home home;
    const std::string path = home / posted.file;
    posted.write(path, kPostedRows);
    const bench::LoopbackServer server;
    std::vector<double> console;
    std::vector<double> window;
    std::vector<double> ratios;
    for (int round = 0; round < kRounds; ++round) {
      console.push_back(PostAtConsole(server.Port(), path, posted.type));
      window.push_back(PostInWindow(server.Port(), path, posted.type));
      ratios.push_back(window.back() / console.back());
    }
    const double ratio = bench::Median(ratios);
    std::printf(
        "%s, %llu rows: in the window %.3f s, at the console %.3f s: ratio %.2f, at most "
        "%.2f: %s\n",
        posted.type, static_cast<unsigned long long>(kPostedRows), bench::Median(window),
        bench::Median(console), ratio, kPostAtMost, Verdict(ratio <= kPostAtMost));
    passed &= ratio <= kPostAtMost;
  }
  return passed;
}

// Scrolling ----------------------------------------------------------------------

/// Scrolls to each place and paints; adds what each frame took.
void Scroll(QScrollBar* bar, const std::vector<int>& places, std::vector<double>& frames) {
  for (const int place : places) {
    frames.push_back(Seconds([&] {
      bar->setValue(place);
      QApplication::processEvents();
    }));
  }
}

/// By the line, by the page, by jumps all over, and sideways.
std::vector<double> ScrollAll(shell::ui::GridView& grid) {
  std::vector<double> frames;
  QScrollBar* down = grid.verticalScrollBar();
  QScrollBar* across = grid.horizontalScrollBar();
  std::vector<int> places;
  for (int i = 0; i < 300; ++i) places.push_back(i);
  for (int i = 0; i < 600; ++i) places.push_back(300 + i * down->pageStep());
  for (int i = 0; i < 600; ++i) {
    places.push_back(static_cast<int>((i * 7919LL * 1009LL) % std::max(1, down->maximum())));
  }
  places.push_back(down->maximum());
  Scroll(down, places, frames);
  places.clear();
  for (int i = 0; i <= 50; ++i) places.push_back(across->maximum() * i / 50);
  Scroll(across, places, frames);
  return frames;
}

bool MeasureScroll() {
  const Home home;
  const std::string path = home / "TRANSACTIONS.csv";
  bench::WriteTransactionsCsv(path, kScrolledRows);
  shell::ui::MainWindow window;
  shell::Application application(window);
  window.show();
  form::ImportForm& importForm = application.Form();
  StoreAddress(importForm, 9);
  const double load = Seconds([&] {
    window.Attach(importForm);
    window.Do([&] {
      importForm.TabSource = {{"Excel"}, "Excel"};
      importForm.txtFilePath = path;
      sources::PickTable(importForm, "TRANSACTIONS");
    });
  });
  QApplication::processEvents();
  shell::ui::GridView& grid = *window.Controls().GR1;
  if (grid.Model().rowCount() < static_cast<int>(kScrolledRows)) {
    throw std::runtime_error("The rows were not loaded");
  }
  std::vector<double> frames = ScrollAll(grid);
  std::sort(frames.begin(), frames.end());
  const bool passed = frames.back() <= kFrameAtMost;
  std::printf(
      "%d rows of CSV loaded in the window in %.2f s; %zu frames: median %.1f ms, 99 of 100 "
      "below %.1f ms, the longest %.1f ms, ratio to 50 ms %.2f: %s\n",
      grid.Model().rowCount(), load, frames.size(), 1000 * frames[frames.size() / 2],
      1000 * frames[frames.size() * 99 / 100], 1000 * frames.back(), frames.back() / kFrameAtMost,
      Verdict(passed));
  return passed;
}

bool RunAsTold(const std::string& word) {
  bool passed = true;
  if (word.empty() || word == "start") passed &= CompareStart();
  int argumentCount = 1;
  char name[] = "desktop_bench";
  char* arguments[] = {name, nullptr};
  QApplication desktop(argumentCount, arguments);
  if (word.empty() || word == "post") passed &= ComparePost();
  if (word.empty() || word == "scroll") passed &= MeasureScroll();
  return passed;
}

}  // namespace

int main(int argc, char** argv) {
  if (!std::getenv("DISPLAY")) ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const std::string word = argc > 1 ? argv[1] : "";
  try {
    if (word == "--start") return StartUntilReady(argc > 2 ? std::stoll(argv[2]) : 0);
    return RunAsTold(word) ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "desktop_bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}
