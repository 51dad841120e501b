#include "practice/gateway.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <utility>

#include "platform/runtime/failure.h"
#include "practice/answers.h"
#include "practice/books_file.h"
#include "practice/names.h"
#include "practice/requests.h"
#include "practice/utf8.h"

namespace vorlane::practice {
namespace {

using platform::Failure;

std::string UnknownReport(const std::string& name) {
  return RefusalAnswer("Could not find Report '" + name + "'!");
}

// Writes what it takes into the file, when there is one.
std::string AnswerImport(const ParsedRequest& request, Books& books, BooksFile* file) {
  const bool old = request.kind == RequestKind::OldImport;
  if (!SameName(request.id, "All Masters") && !SameName(request.id, "Vouchers"))
    return UnknownReport(request.id);
  CompanyBooks* company = request.company.empty() ? books.Current() : books.Find(request.company);
  if (company == nullptr)
    return RefusalAnswer(request.company.empty()
                             ? "Could not find Company ''"
                             : "Could not set 'SVCurrentCompany' to '" + request.company + "'");
  ImportCounts counts;
  const auto data = request.document.SelectNodes(old ? "//REQUESTDATA" : "//DATA");
  if (!data.empty()) counts = ImportMessages(*data.front(), *company, books.CurrentRules());
  const Changes changes = company->TakeChanges();
  if (file != nullptr) file->Save(*company, changes);
  return old ? OldImportAnswer(counts) : NewImportAnswer(counts);
}

// A collection is one of companies when the query defines it so.
bool IsCompanyCollection(const ParsedRequest& request) {
  for (const platform::XmlNode* node : request.document.SelectNodes("//COLLECTION")) {
    if (!SameName(node->Attribute("NAME").value_or(""), request.id)) continue;
    for (const platform::XmlNode* child : node->Children())
      if (child->NodeName() == "TYPE" && SameName(child->Text(), "Company")) return true;
  }
  return false;
}

std::string AnswerObject(const ParsedRequest& request, Books& books) {
  const MasterKind* kind = FindKindBySubtype(request.subtype);
  if (kind == nullptr) return MissingObjectAnswer(request.subtype, request.id);
  const CompanyBooks* company =
      request.company.empty() ? books.Current() : books.Find(request.company);
  const Master* master = company == nullptr ? nullptr : company->Find(kind->kind, request.id);
  return master == nullptr ? MissingObjectAnswer(kind->noun, request.id)
                           : ObjectAnswer(*kind, *master);
}

std::string AnswerQuery(const ParsedRequest& request, Books& books) {
  switch (request.kind) {
    case RequestKind::OldReport:
      if (SameName(request.id, "List of Companies")) return CompanyReportAnswer(books);
      return UnknownReport(request.id);
    case RequestKind::Report:
      if (SameName(request.id, "DynamicCollReport")) return SessionReportAnswer(books);
      return UnknownReport(request.id);
    case RequestKind::Collection:
      if (IsCompanyCollection(request)) return CompanyCollectionAnswer(books);
      return RefusalAnswer("Could not find Collection '" + request.id + "'!");
    case RequestKind::Object:
      return AnswerObject(request, books);
    default:
      return UnknownRequestAnswer();
  }
}

std::vector<std::string> RefusedLines(const std::string& answer) {
  platform::XmlDocument document;
  document.LoadXml(answer);
  std::vector<std::string> lines;
  for (const platform::XmlNode* line : document.SelectNodes("//LINEERROR"))
    lines.push_back(line->Text());
  return lines;
}

std::optional<ScriptedTurn> TakeTurn(std::deque<ScriptedTurn>& turns) {
  if (turns.empty()) return std::nullopt;
  ScriptedTurn turn = std::move(turns.front());
  turns.pop_front();
  return turn;
}

std::filesystem::path RecordPath(const std::filesystem::path& folder, int number,
                                 const char* part) {
  char name[32];
  std::snprintf(name, sizeof name, "%04d-%s.xml", number, part);
  return folder / name;
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::cerr << "The exchange could not be written to " << path.string() << "\n";
}

}  // namespace

PracticeGateway::PracticeGateway(const std::vector<std::string>& companies) : books_(companies) {}

PracticeGateway::~PracticeGateway() = default;

void PracticeGateway::KeepBooks(const std::filesystem::path& file) {
  const std::lock_guard lock(mutex_);
  file_ = std::make_unique<BooksFile>(file);
  LoadBooks();
  for (const CompanyBooks& company : books_.Companies())
    if (!file_->Has(company.Name())) file_->Add(company);
}

void PracticeGateway::LoadBooks() {
  for (CompanyBooks& company : file_->Load()) books_.Load(std::move(company));
  areBooksUntrue_ = false;
}

void PracticeGateway::OpenCompany(const std::string& name) {
  const std::lock_guard lock(mutex_);
  if (books_.Find(name) != nullptr) return;
  CompanyBooks company(name);
  if (file_) file_->Add(company);
  books_.Load(std::move(company));
}

bool PracticeGateway::HasCompanies() const {
  const std::lock_guard lock(mutex_);
  return !books_.Companies().empty();
}

void PracticeGateway::SetRules(Rules rules) {
  const std::lock_guard lock(mutex_);
  for (const std::string& type : rules.uniqueNumbers) {
    const auto has = [&](const CompanyBooks& company) {
      return company.Find(Kind::VoucherType, type) != nullptr;
    };
    if (std::none_of(books_.Companies().begin(), books_.Companies().end(), has))
      throw Failure(
          platform::failure_number::kItemNotFound, "practice gateway",
          "A voucher type was expected, but no company has one of the name '" + type + "'.");
  }
  books_.SetRules(std::move(rules));
}

Answer PracticeGateway::Handle(const Request& request) {
  const std::lock_guard lock(mutex_);
  if (IsPageRequest(request)) {
    if (areBooksUntrue_) LoadBooks();
    return PageAnswer(books_, shown_, request.target);
  }
  Answer answer = Respond(request);
  Show(request.body, answer.body);
  if (!folder_.empty()) Record(request.body, answer.body);
  if (keepExchanges_) exchanges_.push_back({request, answer});
  return answer;
}

Answer PracticeGateway::Respond(const Request& request) {
  std::optional<ScriptedTurn> turn;
  if (LooksLikeImport(request.body)) turn = TakeTurn(importTurns_);
  if (!turn) turn = TakeTurn(turns_);
  if (!turn) turn = ScriptedTurn{{}, ScriptedTurn::Body::Real};
  if (turn->body == ScriptedTurn::Body::Real) turn->answer.body = RealBody(request);
  return std::move(turn->answer);
}

std::string PracticeGateway::RealBody(const Request& request) {
  // A GET is asked for a sign of life alone, whatever it carries.
  if (request.method == "GET") return BannerAnswer();
  if (request.method != "POST") return UnknownRequestAnswer();
  if (TrimName(request.body).empty()) return BannerAnswer();
  return KeptAnswer(ParseRequest(request.body));
}

// What the file cannot take is not in the books either: they are read again before
// they answer the next request.
std::string PracticeGateway::KeptAnswer(const ParsedRequest& request) {
  try {
    if (areBooksUntrue_) LoadBooks();
    if (!IsImport(request.kind)) return AnswerQuery(request, books_);
    areBooksUntrue_ = file_ != nullptr;
    std::string answer = AnswerImport(request, books_, file_.get());
    areBooksUntrue_ = false;
    return answer;
  } catch (const Failure& failure) {
    return RefusalAnswer(failure.Description());
  }
}

void PracticeGateway::Script(std::vector<ScriptedTurn> turns) {
  const std::lock_guard lock(mutex_);
  for (ScriptedTurn& turn : turns) turns_.push_back(std::move(turn));
}

void PracticeGateway::ScriptImports(std::vector<ScriptedTurn> turns) {
  const std::lock_guard lock(mutex_);
  for (ScriptedTurn& turn : turns) importTurns_.push_back(std::move(turn));
}

void PracticeGateway::KeepExchanges(bool keep) {
  const std::lock_guard lock(mutex_);
  keepExchanges_ = keep;
}

std::vector<Exchange> PracticeGateway::Exchanges() const {
  const std::lock_guard lock(mutex_);
  return exchanges_;
}

std::vector<std::string> PracticeGateway::Imports() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> imports;
  for (const Exchange& exchange : exchanges_)
    if (LooksLikeImport(exchange.request.body)) imports.push_back(exchange.request.body);
  return imports;
}

std::vector<std::string> PracticeGateway::Seed(const std::filesystem::path& path) {
  const std::lock_guard lock(mutex_);
  std::error_code error;
  if (!std::filesystem::is_directory(path, error)) return SeedFile(path, true);
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path, error))
    if (entry.path().extension() == ".xml") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  std::vector<std::string> refused;
  for (const std::filesystem::path& file : files)
    for (std::string& line : SeedFile(file, false)) refused.push_back(std::move(line));
  return refused;
}

std::vector<std::string> PracticeGateway::SeedFile(const std::filesystem::path& file,
                                                   bool mustImport) {
  std::ifstream stream(file, std::ios::binary);
  const std::string body = Utf8Of({std::istreambuf_iterator<char>(stream), {}});
  const ParsedRequest request = ParseRequest(body);
  if (!IsImport(request.kind)) {
    if (!mustImport) return {};
    throw Failure(platform::failure_number::kFileNotFound, "practice gateway",
                  "An import document was expected in the file '" + file.string() + "', but it " +
                      (stream ? "holds none." : "cannot be read."));
  }
  std::vector<std::string> refused = RefusedLines(AnswerImport(request, books_, file_.get()));
  // The product writes masters in any order, and reads them so: those whose parent
  // came behind them are there at the next round. Vouchers would be taken twice.
  const bool again = request.document.SelectNodes("//VOUCHER").empty();
  for (std::size_t before = refused.size() + 1;
       again && !refused.empty() && refused.size() < before;) {
    before = refused.size();
    refused = RefusedLines(AnswerImport(request, books_, file_.get()));
  }
  for (std::string& line : refused) line = file.filename().string() + ": " + line;
  return refused;
}

void PracticeGateway::RecordTo(const std::filesystem::path& folder) {
  const std::lock_guard lock(mutex_);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error || !std::filesystem::is_directory(folder, error))
    throw Failure(platform::failure_number::kPathFileAccess, "practice gateway",
                  "A folder for the exchanges was expected, but '" + folder.string() +
                      "' cannot be made: " + error.message(),
                  error.value());
  recorded_ = 0;
  while (std::filesystem::exists(RecordPath(folder, recorded_ + 1, "request"), error)) ++recorded_;
  folder_ = folder;
}

void PracticeGateway::Show(const std::string& request, const std::string& answer) {
  shown_.push_back({++handled_, ShownText(request), ShownText(answer)});
  if (shown_.size() > kShownExchanges) shown_.pop_front();
}

void PracticeGateway::Record(const std::string& request, const std::string& answer) {
  ++recorded_;
  WriteFile(RecordPath(folder_, recorded_, "request"), request);
  WriteFile(RecordPath(folder_, recorded_, "answer"), answer);
}

}  // namespace vorlane::practice
