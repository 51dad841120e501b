// How long a silent run takes, from the path of its source to the last answer,
// beside the floor below it: the same requests, recorded from the run itself and
// sent again by a bare loop over sockets, a connection each, to the same server;
// and, for vouchers, beside a script that posts the same ones.
//
//   post_bench [TYPE [ROWS]]                one of the made-up sources below
//   post_bench --source FILE TYPE [RATIO]   a source of your own; RATIO is how
//                                           many times the floor it may take
//   post_bench --run FILE TYPE PORT         one run alone; tells its seconds

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/bench_form.h"
#include "bench/child_process.h"
#include "bench/loopback_server.h"
#include "bench/make_csv.h"
#include "form/row_outcome.h"
#include "gateway/import_digest.h"
#include "gateway/normalize_document.h"
#include "gateway/tally_gateway.h"
#include "platform/http/http_request.h"
#include "platform/xml/xml_document.h"
#include "shell/post.h"
#include "staging/store.h"
#include "vouchers/voucher_document.h"

namespace {

using namespace vorlane;

constexpr int kRounds = 7;

enum class Kind {
  Masters,
  Vouchers,   ///< staged on their way
  Contested,  ///< vouchers that post_vouchers.py posts too
};

/// A source that the benchmark makes by itself. A type joins with a row here.
struct MadeSource {
  std::string_view type;
  const char* fileName;
  std::uint64_t (*write)(const std::string& path, std::uint64_t rows);
  std::uint64_t rows;
  double atMost;  ///< how many times the floor
  Kind kind = Kind::Masters;
};

constexpr MadeSource kMadeSources[] = {
    {"LEDGER GROUPS", "LEDGERGROUPS.csv", bench::WriteLedgerGroupsCsv, 5000, 1.8},
    {"TRANSACTIONS", "TRANSACTIONS.xls", bench::WriteVouchersXls, 20000, 3.0, Kind::Contested},
    {"LEDGERS", "LEDGERS.csv", bench::WriteLedgersCsv, 60000, 2.0},
    // Through the shipped format: 39 tags, five of them computed, groups under conditions.
    {"STOCK ITEMSGST", "STOCKITEMSGST.csv", bench::WriteStockItemsGstCsv, 10000, 3.0},
    {"VATTRANSACTIONS", "VATTRANSACTIONS.csv", bench::WriteVatCsv, 20000, 4.0, Kind::Vouchers},
    {"VOUCHERREGISTER", "VOUCHERREGISTER.xls", bench::WriteRegisterXls, 20000, 4.0, Kind::Vouchers},
};

struct Workload {
  std::string path;
  std::string type;
  double atMost;
  Kind kind = Kind::Masters;
};

template <class Work>
double Seconds(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct RunTimes {
  double load = 0;
  double post = 0;
  double readBack = 0;  ///< of vouchers: from the store into a document, once more
  double Total() const { return load + post; }
};

/// Fails unless a row was created, and none refused.
void CheckMarks(const form::ImportGrid& grid) {
  const std::size_t status = grid.ColumnIndex(form::ImportGrid::kStatusKey);
  std::size_t created = 0;
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    const std::string_view text = grid.Text(row, status);
    if (text.empty()) continue;
    if (form::ClassifyDigest(text) != form::Outcome::Created) {
      throw std::runtime_error("Row " + std::to_string(row) +
                               " was not created: " + std::string(text));
    }
    ++created;
  }
  if (created == 0) throw std::runtime_error("No row was created");
}

/// Every voucher that the run has staged as a document once more.
void BuildDocuments(form::ImportForm& importForm) {
  vouchers::VoucherDocumentWriter documents(importForm.services.store, importForm.services.gateway);
  const std::string company = importForm.cmbCurrentCompanyList.text;
  std::vector<std::string> ids;
  {
    staging::Statement row = importForm.services.store.Query("Select VchID from Voucher");
    while (row.Step()) ids.emplace_back(row.TextOrEmpty(0));
  }
  for (const std::string& id : ids) {
    if (documents.BuildDocument(company, id, "Create").Xml().empty()) {
      throw std::runtime_error("Voucher " + id + " has no document");
    }
  }
}

RunTimes RunOurs(const Workload& workload, std::uint16_t port) {
  bench::BenchForm bench(port);
  form::ImportForm& importForm = bench.Form();
  RunTimes times;
  times.load = Seconds([&] { bench.Load(workload.path, workload.type); });
  importForm.cmbCurrentCompanyList.text = "Bench & Sons";
  importForm.SilentRun = true;
  times.post = Seconds([&] { shell::Post(importForm); });
  bench.RequireNoBox();
  CheckMarks(importForm.GR1);
  if (workload.kind != Kind::Masters) {
    times.readBack = Seconds([&] { BuildDocuments(importForm); });
  }
  return times;
}

std::vector<std::string> ScriptCommand(const Workload& workload, std::uint16_t port) {
  return {"/usr/bin/python3", BENCH_FOLDER "/post_vouchers.py", workload.path,
          std::to_string(port)};
}

std::vector<std::string> Record(const Workload& workload) {
  const bench::BenchFolder folder;
  const bench::LoopbackServer server(folder / "requests");
  RunOurs(workload, server.Port());
  return bench::ReadRecord(folder / "requests");
}

/// The requests by the program's own exchange, without anything around it.
void ExchangeAll(const std::vector<std::string>& requests, std::uint16_t port) {
  const std::string url = "http://127.0.0.1:" + std::to_string(port);
  for (const std::string& request : requests) {
    platform::HttpRequest exchange;
    exchange.Open(request.substr(0, request.find(' ')), url);
    exchange.Send(bench::BodyOf(request));
  }
}

/// What the gateway does with each document, all but the exchange.
void PassDocuments(const std::vector<std::string>& requests) {
  bench::BenchForm bench;
  errors::Reporter& reporter = bench.Form().services.reporter;
  std::string_view answer = bench::BodyOf(bench::LoopbackServer::Answer());
  for (const std::string& request : requests) {
    const std::string text = gateway::RewriteReservedValues(std::string(bench::BodyOf(request)));
    platform::XmlDocument document;
    document.LoadXml(text);
    gateway::NormalizeDocument(document, reporter);
    if (document.Xml().empty()) throw std::runtime_error("A document went empty");
    gateway::ParseImportResult(answer, reporter);
  }
  bench.RequireNoBox();
}

void ReadAddresses(std::size_t times) {
  bench::BenchForm bench;
  for (std::size_t i = 0; i < times; ++i) bench.Form().services.gateway.GatewayUrl();
}

/// What is measured in each round, in the order of the lines that are printed.
enum Part { kFloor, kRun, kLoad, kExchange, kDocument, kAddress, kReadBack, kParts };

using Round = std::array<double, kParts>;

Round MeasureRound(const Workload& workload, const std::vector<std::string>& requests,
                   std::uint16_t port, bool floorFirst) {
  Round round{};
  const auto measureFloor = [&] {
    round[kFloor] = Seconds([&] { bench::Replay(requests, port); });
  };
  if (floorFirst) measureFloor();
  const RunTimes run = RunOurs(workload, port);
  if (!floorFirst) measureFloor();
  round[kRun] = run.Total();
  round[kLoad] = run.load;
  round[kReadBack] = run.readBack;
  round[kExchange] = Seconds([&] { ExchangeAll(requests, port); });
  round[kDocument] = Seconds([&] { PassDocuments(requests); });
  round[kAddress] = Seconds([&] { ReadAddresses(requests.size()); });
  return round;
}

/// The median over the rounds of what `value` makes of one.
template <class Value>
double MedianOf(const std::vector<Round>& rounds, Value&& value) {
  std::vector<double> values;
  std::transform(rounds.begin(), rounds.end(), std::back_inserter(values), value);
  return bench::Median(std::move(values));
}

void PrintPart(const std::vector<Round>& rounds, const char* name, double requests,
               double (*value)(const Round&)) {
  std::printf("  %-34s %8.3f s  %7.1f us a request  ratio %.2f\n", name, MedianOf(rounds, value),
              MedianOf(rounds, value) * 1e6 / requests,
              MedianOf(rounds, [&](const Round& round) { return value(round) / round[kFloor]; }));
}

/// Fails unless the script sends what our run sends, but for the indentation.
void CheckScript(const Workload& workload, const std::vector<std::string>& requests) {
  const bench::BenchFolder folder;
  const bench::LoopbackServer server(folder / "requests");
  bench::RunChild(ScriptCommand(workload, server.Port()));
  const std::vector<std::string> sent = bench::ReadRecord(folder / "requests");
  if (sent.size() != requests.size()) throw std::runtime_error("The script sent other vouchers");
  for (std::size_t i = 0; i < sent.size(); ++i) {
    platform::XmlDocument ours;
    platform::XmlDocument theirs;
    ours.LoadXml(bench::BodyOf(requests[i]));
    theirs.LoadXml(bench::BodyOf(sent[i]));
    if (ours.Xml() != theirs.Xml()) {
      throw std::runtime_error("The script sent another voucher:\n" + theirs.Xml() + "\nOurs:\n" +
                               ours.Xml());
    }
  }
}

void PrintContender(const char* name, const bench::Measured& measured) {
  std::printf("  %-34s %8.3f s  %7.3f s of a processor, at most %.1f MB\n", name, measured.seconds,
              measured.cpuSeconds, measured.megabytes);
}

/// Both as processes of their own, from the path to the last answer.
bool CompareWithScript(const Workload& workload, std::uint16_t port) {
  std::vector<double> ratios;
  bench::Measured ours;
  bench::Measured script;
  for (int round = 0; round < kRounds; ++round) {
    ours = bench::RunChild(
        {"/proc/self/exe", "--run", workload.path, workload.type, std::to_string(port)});
    script = bench::RunChild(ScriptCommand(workload, port));
    if (!ours.succeeded || !script.succeeded) throw std::runtime_error("A contender failed");
    ratios.push_back(ours.seconds / script.seconds);
  }
  PrintContender("the run as a process, last round", ours);
  PrintContender("the script, last round", script);
  const double ratio = bench::Median(ratios);
  const bool passed = ratio <= 1;
  std::printf("  %.2f times the script, at most 1.00: %s\n", ratio, passed ? "pass" : "FAIL");
  return passed;
}

bool Compare(const Workload& workload) {
  const std::vector<std::string> requests = Record(workload);
  if (requests.empty()) throw std::runtime_error("The run sent nothing");
  std::size_t bytes = 0;
  for (const std::string& request : requests) bytes += request.size();
  std::printf("%s, %zu requests of %zu bytes\n", workload.type.c_str(), requests.size(),
              bytes / requests.size());

  if (workload.kind == Kind::Contested) CheckScript(workload, requests);

  const bench::LoopbackServer server;
  std::vector<Round> rounds;
  for (int round = 0; round < kRounds; ++round) {
    rounds.push_back(MeasureRound(workload, requests, server.Port(), round % 2 == 0));
  }
  const auto count = static_cast<double>(requests.size());
  PrintPart(rounds, "floor, bare sockets", count, [](const Round& r) { return r[kFloor]; });
  PrintPart(rounds, "the run", count, [](const Round& r) { return r[kRun]; });
  PrintPart(rounds, "  its load", count, [](const Round& r) { return r[kLoad]; });
  PrintPart(rounds, "  exchange", count, [](const Round& r) { return r[kExchange]; });
  PrintPart(rounds, "  document, out and in", count, [](const Round& r) { return r[kDocument]; });
  PrintPart(rounds, "  address from the settings", count,
            [](const Round& r) { return r[kAddress]; });
  const bool isStaged = workload.kind != Kind::Masters;
  if (isStaged) {
    PrintPart(rounds, "  reading back and building", count,
              [](const Round& r) { return r[kReadBack]; });
  }
  PrintPart(rounds, isStaged ? "  staging and the rest" : "  rest", count, [](const Round& r) {
    return r[kRun] - r[kLoad] - r[kExchange] - r[kDocument] - r[kAddress] - r[kReadBack];
  });
  const double ratio =
      MedianOf(rounds, [](const Round& round) { return round[kRun] / round[kFloor]; });
  const bool passed = ratio <= workload.atMost;
  std::printf("  %.2f times the floor, at most %.2f: %s\n", ratio, workload.atMost,
              passed ? "pass" : "FAIL");
  const bool isContested = workload.kind == Kind::Contested;
  return (!isContested || CompareWithScript(workload, server.Port())) && passed;
}

bool CompareMade(const MadeSource& made, std::uint64_t rows) {
  const bench::BenchFolder folder;
  const std::string path = folder / made.fileName;
  made.write(path, rows);
  return Compare({path, std::string(made.type), made.atMost, made.kind});
}

bool RunAsTold(const std::vector<std::string>& words) {
  if (words.size() == 4 && words[0] == "--run") {
    const auto port = static_cast<std::uint16_t>(std::stoi(words[3]));
    std::printf("%.6f\n", RunOurs({words[1], words[2], 0}, port).Total());
    return true;
  }
  if (words.size() >= 3 && words[0] == "--source") {
    return Compare({words[1], words[2], words.size() > 3 ? std::stod(words[3]) : 1.8});
  }
  bool passed = true;
  bool isKnown = false;
  for (const MadeSource& made : kMadeSources) {
    if (!words.empty() && words[0] != made.type) continue;
    isKnown = true;
    passed &= CompareMade(made, words.size() > 1 ? std::stoull(words[1]) : made.rows);
  }
  if (!isKnown) throw std::runtime_error("No source is made up for " + words[0]);
  return passed;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return RunAsTold({argv + 1, argv + argc}) ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "post_bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}
