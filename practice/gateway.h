#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "practice/books.h"
#include "practice/http_server.h"
#include "practice/page.h"

namespace vorlane::practice {

/// A request with what it got.
struct Exchange {
  Request request;
  Answer answer;
};

/// A turn of the gateway that a test lays down beforehand.
struct ScriptedTurn {
  enum class Body {
    Scripted,  ///< `answer` goes out, the request is not handled
    Real,      ///< the request is handled; `answer` gives all but the body
  };
  Answer answer;
  Body body = Body::Scripted;
};

class BooksFile;
struct ParsedRequest;

/// Plays the product's gateway on books that it keeps in memory, and in a file when it
/// is told to. Safe to use from several threads.
class PracticeGateway {
 public:
  explicit PracticeGateway(const std::vector<std::string>& companies);
  ~PracticeGateway();

  /// Opens the companies of a file besides those that are open, or in their place when
  /// the names are the same; the file gets the companies that it lacks. From now on it
  /// gets what each import changes before the answer goes out; an import that it cannot
  /// take is refused whole. Fails as BooksFile does.
  void KeepBooks(const std::filesystem::path& file);

  /// Opens a new company behind the others, unless one of that name is open.
  void OpenCompany(const std::string& name);
  bool HasCompanies() const;

  /// What the books refuse from now on. Fails when no company has a voucher type that
  /// the rules name.
  void SetRules(Rules rules);

  /// A browser that asks for "/" gets the page; that is no exchange: it is neither
  /// kept nor recorded and takes no scripted turn.
  Answer Handle(const Request& request);

  /// Lays down the turns for the next requests of any kind, one each, behind
  /// those laid down before.
  void Script(std::vector<ScriptedTurn> turns);
  /// The same for the next imports alone; other requests pass by. When both
  /// kinds are waiting, an import takes the one that is for imports.
  void ScriptImports(std::vector<ScriptedTurn> turns);

  /// Whether exchanges are kept for Exchanges and Imports, as they are at first.
  /// A gateway that runs for days had better not.
  void KeepExchanges(bool keep);
  /// All exchanges so far, also those whose answer failed on the wire.
  std::vector<Exchange> Exchanges() const;
  /// The bodies of the imports among them.
  std::vector<std::string> Imports() const;

  /// Fills the books before the first request: handles the body that a file
  /// holds, or those of a folder's "*.xml" in the order of their names, as imports
  /// that nobody sent: they are not recorded and take no scripted turn. In a
  /// folder, what is no import is passed over, so that a folder of RecordTo does. A
  /// file may be UTF-16, as the product exports, and a master stand before its parent.
  /// Gives the lines of what was refused. Fails for what cannot be read, and for a
  /// file that is no import.
  std::vector<std::string> Seed(const std::filesystem::path& path);

  /// From now on writes each request's body and its answer as NNNN-request.xml
  /// and NNNN-answer.xml, numbered behind those that the folder has. Makes the
  /// folder; fails when it cannot be made. A file that cannot be written later
  /// is told on the standard error, the answer goes out all the same.
  void RecordTo(const std::filesystem::path& folder);

 private:
  std::vector<std::string> SeedFile(const std::filesystem::path& file, bool mustImport);
  Answer Respond(const Request& request);
  std::string RealBody(const Request& request);
  std::string KeptAnswer(const ParsedRequest& request);
  void LoadBooks();
  void Record(const std::string& request, const std::string& answer);
  void Show(const std::string& request, const std::string& answer);

  mutable std::mutex mutex_;
  Books books_;
  std::unique_ptr<BooksFile> file_;  // null: the books are in memory alone
  bool areBooksUntrue_ = false;      // something stands in them that is not in the file
  std::deque<ScriptedTurn> turns_;
  std::deque<ScriptedTurn> importTurns_;
  bool keepExchanges_ = true;
  std::vector<Exchange> exchanges_;
  std::deque<ShownExchange> shown_;
  int handled_ = 0;
  std::filesystem::path folder_;  // empty: nothing is recorded
  int recorded_ = 0;
};

/// The gateway behind a server of its own.
class PracticeServer {
 public:
  explicit PracticeServer(const std::vector<std::string>& companies = {"Practice Traders"},
                          std::uint16_t port = 0)
      : gateway_(companies),
        server_([this](const Request& request) { return gateway_.Handle(request); }, port) {}

  PracticeGateway& Gateway() { return gateway_; }
  std::uint16_t Port() const { return server_.Port(); }
  void Stop() { server_.Stop(); }

 private:
  PracticeGateway gateway_;
  HttpServer server_;
};

}  // namespace vorlane::practice
