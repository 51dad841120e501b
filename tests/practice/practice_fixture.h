#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include <arpa/inet.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <unistd.h>

#include "practice/http_server.h"

// Requests as the importer sends them, and ways to look at what comes back.

namespace vorlane::practice {

inline constexpr const char* kBanner = "<RESPONSE>TallyPrime Server is Running</RESPONSE>\r\n";
inline constexpr const char* kUnknown =
    "<RESPONSE>Unknown Request, cannot be processed</RESPONSE>\r\n";

inline Request Post(std::string body) { return {"POST", "/", {}, {}, std::move(body)}; }

inline std::string OldImport(const std::string& messages, const std::string& company = "",
                             const std::string& report = "All Masters") {
  return "<ENVELOPE>\r\n  <HEADER>\r\n    <TALLYREQUEST> Import Data </TALLYREQUEST>\r\n"
         "  </HEADER>\r\n<BODY><IMPORTDATA><REQUESTDESC><REPORTNAME>" +
         report + "</REPORTNAME><STATICVARIABLES>" +
         (company.empty() ? "" : "<SVCURRENTCOMPANY>" + company + "</SVCURRENTCOMPANY>") +
         "</STATICVARIABLES></REQUESTDESC><REQUESTDATA><TALLYMESSAGE xmlns:UDF=\"TallyUDF\">" +
         messages + "</TALLYMESSAGE></REQUESTDATA></IMPORTDATA></BODY></ENVELOPE>";
}

inline std::string NewImport(const std::string& messages) {
  return "<ENVELOPE><HEADER><VERSION>1</VERSION><TALLYREQUEST>Import</TALLYREQUEST>"
         "<TYPE>Data</TYPE><ID>All Masters</ID></HEADER><BODY><DESC><STATICVARIABLES>"
         "<IMPORTDUPS>@@DUPCOMBINE</IMPORTDUPS></STATICVARIABLES></DESC><DATA><TALLYMESSAGE>" +
         messages + "</TALLYMESSAGE></DATA></BODY></ENVELOPE>";
}

inline std::string Query(const std::string& type, const std::string& id,
                         const std::string& rest = "") {
  return "\r\n<ENVELOPE>\r\n<HEADER>\r\n<VERSION>1</VERSION>\r\n"
         "<TALLYREQUEST>EXPORT</TALLYREQUEST>\r\n<TYPE>" +
         type + "</TYPE>\r\n" + id + "\r\n</HEADER>\r\n<BODY>" + rest + "</BODY>\r\n</ENVELOPE>";
}

inline std::string Lookup(const std::string& subtype, const std::string& name) {
  return Query("OBJECT", "<SUBTYPE>" + subtype + "</SUBTYPE><ID TYPE=\"Name\">" + name + "</ID>");
}

/// "created altered deleted errors" and the line errors behind, from an answer;
/// the answer itself when it holds no counters.
inline std::string Counts(const std::string& answer) {
  std::string counts;
  for (const std::string tag : {"<CREATED>", "<ALTERED>", "<DELETED>", "<ERRORS>"}) {
    const std::size_t at = answer.find(tag);
    if (at == answer.npos) return answer;
    counts += answer[at + tag.size()];
  }
  const std::string tag = "<LINEERROR>";
  for (std::size_t at = 0; (at = answer.find(tag, at)) != answer.npos;) {
    at += tag.size();
    counts.append(1, ' ').append(answer, at, answer.find('<', at) - at);
  }
  return counts;
}

inline std::string Creating(const std::string& element, const std::string& name,
                            const std::string& children = "") {
  return "<" + element + " NAME=\"" + name + "\" ACTION=\"Create\">" + children + "</" + element +
         ">";
}

class TemporaryFolder {
 public:
  TemporaryFolder() : path_((std::filesystem::temp_directory_path() / "practice-XXXXXX").string()) {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error(path_);
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  std::string operator/(const char* name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

inline std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

inline std::string Exchanged(std::uint16_t port, const std::string& request) {
  const int wire = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  std::string answer;
  if (::connect(wire, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
      ::send(wire, request.data(), request.size(), MSG_NOSIGNAL) > 0) {
    char piece[4096];
    for (ssize_t count; (count = ::recv(wire, piece, sizeof piece, 0)) > 0;)
      answer.append(piece, static_cast<std::size_t>(count));
  }
  ::close(wire);
  return answer;
}

inline std::string PostOnWire(std::uint16_t port, const std::string& body) {
  return Exchanged(port, "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: " +
                             std::to_string(body.size()) + "\r\n\r\n" + body);
}

}  // namespace vorlane::practice
