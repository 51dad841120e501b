#include "platform/script/fault.h"

#include <string>

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/script/convert.h"

namespace vorlane::platform::script {
namespace {

constexpr std::size_t kShownCharacters = 60;

[[noreturn]] void Throw(const Fault& fault, const std::string& rest) {
  throw Failure(fault.number, "Expression", std::string(fault.words) + rest);
}

std::string Describe(const Value& value) {
  switch (value.GetKind()) {
    case Kind::Text:
      return "[string: \"" + std::string(LeftCharacters(value.Text(), kShownCharacters)) + "\"]";
    case Kind::Boolean:
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
    case Kind::Single:
    case Kind::Double:
    case Kind::Currency:
      return "[number: " + ToText(value) + "]";
    default:
      return "[" + std::string(TypeName(value)) + "]";
  }
}

}  // namespace

void Raise(const Fault& fault, std::string_view about) {
  Throw(fault, about.empty() ? "" : ": '" + std::string(about) + "'");
}

void RaiseAbout(const Fault& fault, const Value& value) { Raise(fault, Describe(value)); }

void RaiseAt(const Fault& fault, std::string_view expression, std::size_t byte) {
  const std::size_t character = CharacterCount(expression.substr(0, byte)) + 1;
  Throw(fault, " at character " + std::to_string(character));
}

}  // namespace vorlane::platform::script
