#include "bench/make_csv.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "bench/child_process.h"

namespace vorlane::bench {

namespace {

constexpr std::array<std::string_view, 8> kLedgers = {
    "Sharma & Sons, Mumbai",   "HDFC Bank Current Account",
    "Sales of Cotton Shirts",  "Output CGST 9% on Sales",
    "Output SGST 9% on Sales", "Purchase of Raw Cotton",
    "राजेश किराना स्टोर",        "Hotel \"Taj\" and Restaurant, Colaba"};
constexpr std::array<std::string_view, 4> kTypes = {"Sales", "Receipt", "Payment", "Journal"};
constexpr std::array<std::string_view, 4> kNarrations = {
    "Goods sold on credit as per the order of the buyer, delivered by road",
    "Received by cheque no. 000451 drawn on the bank of the party",
    "Paid for the \"month\" of April and settled in full",
    "Shop rent and electricity for the premises in Fort"};

void AppendField(std::string& line, std::string_view text) {
  line += ',';
  if (text.find_first_of(",\"") == std::string_view::npos) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) line.append(c == '"' ? 2 : 1, c);
  line += '"';
}

std::string TwoDigits(std::uint64_t number) {
  std::string text = std::to_string(number);
  return text.size() == 1 ? text.insert(0, 1, '0') : text;
}

// Writes one row after the other, voucher by voucher.
class RowMaker {
 public:
  void AppendRow(std::uint64_t serial, std::string& line) {
    const bool isFirst = left_ == 0;
    if (isFirst) {
      left_ = 3 + random_() % 3;
      ++voucher_;
    }
    --left_;
    line += std::to_string(serial);
    AppendHead(isFirst, line);
    // The ledgers with quotes and in Hindi are the rare ones.
    AppendField(line, kLedgers[random_() % 15 == 0 ? 6 + random_() % 2 : random_() % 6]);
    const std::string amount =
        std::to_string(random_() % 1000000) + "." + TwoDigits(random_() % 100);
    AppendField(line, isFirst ? amount : "");
    AppendField(line, isFirst ? "" : amount);
    AppendField(line, isFirst ? kNarrations[random_() % 4] : "");
    AppendField(line, isFirst ? "New Ref" : "Agst Ref");
    AppendField(line, "BILL/2024-25/" + std::to_string(voucher_));
    AppendField(line, "30 Days");
    AppendField(line, amount);
    AppendField(line, isFirst ? "" : "20 cotton shirts");
    line += "\r\n";
  }

 private:
  void AppendHead(bool isFirst, std::string& line) {
    if (!isFirst) {
      line += ",,,,";
      return;
    }
    AppendField(line, kTypes[voucher_ % kTypes.size()]);
    AppendField(line, "V/" + std::to_string(voucher_));
    AppendField(line,
                TwoDigits(1 + voucher_ % 28) + "-" + TwoDigits(1 + voucher_ / 28 % 12) + "-2024");
    AppendField(line, "PO-" + std::to_string(voucher_ % 5000));
  }

  std::minstd_rand random_{1};
  std::uint64_t voucher_ = 0;
  std::uint64_t left_ = 0;
};

void AppendVoucherRow(std::uint64_t serial, std::string& line) {
  const std::uint64_t voucher = (serial + 1) / 2;
  const bool isFirst = serial % 2 == 1;
  const std::string number = std::to_string(voucher);
  // Every other voucher debits its first row.
  const bool isDebit = isFirst == (voucher % 2 == 0);
  const std::string amount =
      std::to_string(100 + voucher * 7919 % 90000) + "." + TwoDigits(voucher % 100);
  line += std::to_string(serial);
  AppendField(line, "VCH-" + number);
  AppendField(line, isFirst ? kTypes[voucher % kTypes.size()] : "");
  AppendField(line, isFirst ? "V/" + number : "");
  AppendField(
      line, isFirst ? TwoDigits(1 + voucher % 28) + "-" + TwoDigits(1 + voucher / 28 % 12) + "-2024"
                    : "");
  AppendField(line, isFirst ? "PO-" + std::to_string(voucher % 5000) : "");
  AppendField(line, kLedgers[(voucher + (isFirst ? 0 : 4)) % kLedgers.size()]);
  AppendField(line, isDebit ? amount : "");
  AppendField(line, isDebit ? "" : amount);
  AppendField(line, isFirst ? kNarrations[voucher % kNarrations.size()] : "");
  AppendField(line, isFirst ? "New Ref" : "");
  AppendField(line, isFirst ? "BILL/2024-25/" + number : "");
  AppendField(line, isFirst ? "30 Days" : "");
  AppendField(line, isFirst ? amount : "");
  line += "\r\n";
}

/// Writes a file of a header and rows, a megabyte at a time; gives its size.
template <class AppendRow>
std::uint64_t WriteCsv(const std::string& path, std::string text, std::uint64_t rows,
                       AppendRow&& appendRow) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                             std::fclose);
  if (!file) throw std::system_error(errno, std::generic_category(), path);
  std::uint64_t size = 0;
  const auto flush = [&] {
    size += text.size();
    if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size()) {
      throw std::system_error(errno, std::generic_category(), path);
    }
    text.clear();
  };
  for (std::uint64_t serial = 1; serial <= rows; ++serial) {
    appendRow(serial, text);
    if (text.size() > (1 << 20)) flush();
  }
  flush();
  if (std::fflush(file.get()) != 0) throw std::system_error(errno, std::generic_category(), path);
  return size;
}

}  // namespace

std::uint64_t WriteTransactionsCsv(const std::string& path, std::uint64_t rows) {
  RowMaker maker;
  return WriteCsv(path,
                  "SrNo,VchType,VchNo,VchDate,RefNo,Ledger,Debit,Credit,Narration,"
                  "AdjMethod,AdjName,AdjDate,AdjAmount,LineNarration\r\n",
                  rows,
                  [&](std::uint64_t serial, std::string& line) { maker.AppendRow(serial, line); });
}

std::uint64_t WriteVouchersCsv(const std::string& path, std::uint64_t rows) {
  return WriteCsv(path,
                  "SrNo,ID,VchType,VchNo,VchDate,RefNo,Ledger,Debit,Credit,Narration,"
                  "AdjMethod,AdjName,AdjDate,AdjAmount\r\n",
                  rows, AppendVoucherRow);
}

std::uint64_t WriteVouchersXls(const std::string& path, std::uint64_t rows) {
  const std::string csv = path + ".csv";
  WriteVouchersCsv(csv, rows);
  const Measured made =
      RunChild({"/usr/bin/python3", BENCH_FOLDER "/make_workbook.py", csv, path, "TRANSACTIONS"});
  std::filesystem::remove(csv);
  if (!made.succeeded) throw std::runtime_error("The workbook was not made; is xlwt installed?");
  return std::filesystem::file_size(path);
}

std::uint64_t WriteLedgerGroupsCsv(const std::string& path, std::uint64_t rows) {
  return WriteCsv(path, "Name,NameAlias,Parent,SubLedger\r\n", rows,
                  [](std::uint64_t serial, std::string& line) {
                    const std::string number = std::to_string(serial);
                    line += "Debtors - Route " + number;
                    AppendField(line, serial % 3 == 0 ? "DR" + number : "");
                    AppendField(line, "Sundry Debtors");
                    AppendField(line, serial % 2 == 0 ? "Yes" : "No");
                    line += "\r\n";
                  });
}

}  // namespace vorlane::bench
