#include "practice/http_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace vorlane::practice {
namespace {

constexpr std::size_t kMaxBody = 256 * 1024 * 1024;

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view ReasonPhrase(int status) {
  static constexpr std::array<std::pair<int, std::string_view>, 10> kPhrases{{
      {200, "OK"},
      {301, "Moved Permanently"},
      {302, "Found"},
      {400, "Bad Request"},
      {404, "Not Found"},
      {411, "Length Required"},
      {413, "Content Too Large"},
      {431, "Request Header Fields Too Large"},
      {500, "Internal Server Error"},
      {503, "Service Unavailable"},
  }};
  for (const auto& [code, phrase] : kPhrases) {
    if (code == status) return phrase;
  }
  return "Answer";
}

}  // namespace

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

std::string_view Request::Header(std::string_view name) const {
  for (const auto& [key, value] : headers) {
    if (EqualsIgnoringCase(key, name)) return value;
  }
  return {};
}

Answer Refusal(int status) {
  return {status, "text/plain", std::string(ReasonPhrase(status)) + "\r\n"};
}

bool ParseHead(Request& request) {
  std::string_view rest(request.head);
  const auto nextLine = [&rest] {
    const auto end = rest.find("\r\n");
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + 2);
    return line;
  };

  const std::string_view first = nextLine();
  const auto methodEnd = first.find(' ');
  const auto targetEnd = first.rfind(' ');
  if (methodEnd == std::string_view::npos || methodEnd == 0 || targetEnd <= methodEnd) return false;
  if (!first.substr(targetEnd + 1).starts_with("HTTP/1.")) return false;
  request.method = first.substr(0, methodEnd);
  request.target = first.substr(methodEnd + 1, targetEnd - methodEnd - 1);

  for (auto line = nextLine(); !line.empty(); line = nextLine()) {
    const auto colon = line.find(':');
    if (colon == std::string_view::npos || colon == 0) return false;
    if (line.substr(0, colon).find_first_of(" \t") != std::string_view::npos) return false;
    request.headers.emplace_back(line.substr(0, colon), Trimmed(line.substr(colon + 1)));
  }
  return true;
}

BodyLength AnnouncedBody(const Request& request) {
  if (!request.Header("Transfer-Encoding").empty()) return {0, 411};
  const std::string_view text = request.Header("Content-Length");
  if (text.empty()) return {};
  std::size_t bytes = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bytes);
  if (error == std::errc::result_out_of_range) return {0, 413};
  if (error != std::errc() || end != text.data() + text.size()) return {0, 400};
  if (bytes > kMaxBody) return {0, 413};
  return {bytes, 0};
}

std::string AnswerHead(const Answer& answer) {
  std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " ";
  head += ReasonPhrase(answer.status);
  if (!answer.contentType.empty()) head += "\r\nContent-Type: " + answer.contentType;
  head += "\r\nContent-Length: " + std::to_string(answer.body.size());
  head += "\r\nConnection: close\r\n\r\n";
  return head;
}

}  // namespace vorlane::practice
