#include "platform/data/access/reader/mdb_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/runtime/date.h"
#include "platform/runtime/number.h"

namespace vorlane::platform {

namespace {

// A memo's field: its length and how it is stored, and a pointer.
constexpr std::size_t kMemoHead = 12;
constexpr std::uint32_t kMemoInRow = 0x80000000;
constexpr std::uint32_t kMemoInOnePiece = 0x40000000;
constexpr std::uint32_t kMemoLength = 0x3FFFFFFF;
constexpr std::size_t kNextPiece = 4;

template <class Number>
Number LoadFrom(const void* bytes) {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

/// Without the zeros at the end of its fraction.
void DropZeros(std::string& number) {
  if (number.find('.') == std::string::npos) return;
  while (number.back() == '0') number.pop_back();
  if (number.back() == '.') number.pop_back();
}

template <class Number>
void AppendDigits(Number number, std::string& out) {
  std::array<char, 24> digits{};
  out.append(digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr);
}

}  // namespace

FieldKind KindOfColumn(const MdbColumn& column) {
  switch (column.col_type) {
    case MDB_BOOL:
      return FieldKind::Boolean;
    case MDB_DATETIME:
      return FieldKind::Date;
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
      return FieldKind::Number;
    default:
      return FieldKind::Text;
  }
}

template <class Number>
Number MdbValues::Load(const MdbField& field, std::size_t offset) const {
  if (offset + sizeof(Number) > static_cast<std::size_t>(field.siz)) {
    throw Damage("a value of it is too short for its type.");
  }
  return LoadFrom<Number>(static_cast<const char*>(field.value) + offset);
}

std::optional<std::string_view> MdbValues::TextOf(const MdbColumn& column, const MdbField& field) {
  // A Yes/No has no value but the bit that says whether it is there.
  if (column.col_type == MDB_BOOL) return field.is_null ? "False" : "True";
  if (field.is_null) return std::nullopt;
  text_.clear();
  switch (column.col_type) {
    case MDB_BYTE:
      AppendDigits(unsigned{Load<std::uint8_t>(field)}, text_);
      break;
    case MDB_INT:
      AppendDigits(int{Load<std::int16_t>(field)}, text_);
      break;
    case MDB_LONGINT:
      AppendDigits(Load<std::int32_t>(field), text_);
      break;
    case MDB_MONEY:
      AppendMoney(Load<std::int64_t>(field));
      break;
    case MDB_FLOAT: {
      // By its own digits: as a double 0.1 would be 0.100000001490116.
      std::string digits;
      AppendDigits(Load<float>(field), digits);
      double number = 0;
      std::from_chars(digits.data(), digits.data() + digits.size(), number);
      AppendNumber(number);
      break;
    }
    case MDB_DOUBLE:
      AppendNumber(Load<double>(field));
      break;
    case MDB_DATETIME:
      AppendDate(Load<double>(field));
      break;
    case MDB_REPID:
      AppendGuid(field);
      break;
    case MDB_NUMERIC:
      AppendDecimal(column, field);
      break;
    case MDB_TEXT:
      AppendText({static_cast<const char*>(field.value), static_cast<std::size_t>(field.siz)});
      break;
    case MDB_MEMO:
      ReadMemo(field);
      AppendText(memo_);
      break;
    default:
      return std::nullopt;
  }
  return text_;
}

void MdbValues::AppendNumber(double number) {
  text_ += std::isfinite(number) ? NumberText(number) : "#NUM!";
}

void MdbValues::AppendDate(double serial) {
  if (IsDateSerial(serial)) {
    AppendDateText(FromSerial(serial), text_);
  } else {
    AppendNumber(serial);
  }
}

void MdbValues::AppendMoney(std::int64_t tenThousandths) {
  constexpr std::uint64_t kUnit = 10000;
  const bool isNegative = tenThousandths < 0;
  const auto digits = static_cast<std::uint64_t>(tenThousandths);
  const std::uint64_t amount = isNegative ? 0 - digits : digits;
  if (isNegative) text_ += '-';
  AppendDigits(amount / kUnit, text_);
  if (amount % kUnit == 0) return;
  text_ += '.';
  AppendPadded(static_cast<int>(amount % kUnit), 4, text_);
  DropZeros(text_);
}

void MdbValues::AppendGuid(const MdbField& field) {
  std::array<char, 40> guid{};
  std::snprintf(guid.data(), guid.size(), "{%08X-%04X-%04X-", Load<std::uint32_t>(field),
                Load<std::uint16_t>(field, 4), Load<std::uint16_t>(field, 6));
  text_ += guid.data();
  for (std::size_t i = 8; i < 16; ++i) {
    std::snprintf(guid.data(), guid.size(), i == 9 ? "%02X-" : "%02X",
                  Load<std::uint8_t>(field, i));
    text_ += guid.data();
  }
  text_ += '}';
}

void MdbValues::AppendDecimal(const MdbColumn& column, const MdbField& field) {
  Load<std::uint8_t>(field, 16);
  char* digits = mdb_numeric_to_string(mdb_, field.start, column.col_scale, column.col_prec);
  if (digits != nullptr) text_ += digits;
  g_free(digits);
  DropZeros(text_);
}

void MdbValues::AppendText(std::string_view bytes) {
  if (bytes.empty()) return;
  // A unit of two bytes, or of one when compressed, is three bytes at most.
  constexpr std::size_t kWidest = 3;
  text_.resize(bytes.size() * kWidest + kWidest);
  const int size = mdb_unicode2ascii(mdb_, bytes.data(), bytes.size(), text_.data(), text_.size());
  text_.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
}

void MdbValues::ReadMemo(const MdbField& field) {
  memo_.clear();
  if (field.siz == 0) return;
  const auto head = Load<std::uint32_t>(field);
  const auto pointer = Load<std::uint32_t>(field, 4);
  const std::size_t size = head & kMemoLength;
  if (head & kMemoInRow) {
    Load<std::uint8_t>(field, kMemoHead - 1);
    memo_.assign(static_cast<const char*>(field.value) + kMemoHead,
                 static_cast<std::size_t>(field.siz) - kMemoHead);
  } else if (size > fileSize_) {
    throw Damage("a memo of it is longer than the file.");
  } else if (head & kMemoInOnePiece) {
    memo_ = MemoPiece(pointer);
  } else {
    AppendMemoPieces(pointer, size);
  }
  if (memo_.size() < size) throw Damage("a memo of it ends too early.");
  memo_.resize(size);
}

void MdbValues::AppendMemoPieces(std::uint32_t pointer, std::size_t size) {
  while (pointer != 0 && memo_.size() < size) {
    const std::string_view piece = MemoPiece(pointer);
    // A chain that goes round in a circle ends too, since every piece adds to it.
    if (piece.size() <= kNextPiece) throw Damage("a memo of it is broken.");
    pointer = LoadFrom<std::uint32_t>(piece.data());
    memo_ += piece.substr(kNextPiece);
  }
}

std::string_view MdbValues::MemoPiece(std::uint32_t pointer) {
  void* page = nullptr;
  int start = 0;
  std::size_t size = 0;
  if (mdb_find_pg_row(mdb_, static_cast<int>(pointer), &page, &start, &size) != 0) {
    throw Damage("a memo of it is on page " + std::to_string(pointer >> 8) +
                 ", which does not have it.");
  }
  return {static_cast<const char*>(page) + start, size};
}

}  // namespace vorlane::platform
