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
#include <vector>

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

void AppendLedgerRow(std::uint64_t serial, std::string& line) {
  const std::string number = std::to_string((serial + 2) / 3);
  const bool isFirst = serial % 3 == 1;
  if (isFirst) line += "Customer " + number;
  AppendField(line, isFirst ? "Sundry Debtors" : "");
  AppendField(line, isFirst ? "Yes" : "");
  AppendField(line, isFirst ? "Shop " + number + ", Market Yard" : "");
  AppendField(line, isFirst ? "Pune" : "");
  AppendField(line, isFirst ? "Maharashtra" : "");
  AppendField(line, isFirst ? "411037" : "");
  AppendField(line, "31-03-2025");
  AppendField(line, "BILL/" + std::to_string(serial));
  AppendField(line, "30 Days");
  AppendField(line, "-" + std::to_string(100 + serial % 9000) + ".50");
  line += "\r\n";
}

/// An item of an invoice sells for 5000 plus its own number; the tax is a tenth.
void AppendVatRow(std::uint64_t serial, std::string& line) {
  const std::string number = std::to_string((serial + 3) / 4);
  const std::uint64_t row = (serial - 1) % 4;
  const std::string item = std::to_string(serial % 500);
  line += std::to_string(serial);
  for (const std::string& text : {"INV-" + number, std::string("Sales"), "INV/" + number}) {
    AppendField(line, text);
  }
  AppendField(line, "05-04-2024");
  AppendField(line, "PO-" + number);
  AppendField(line, row == 0 ? "Goods sold against the order of the buyer" : "");
  constexpr std::array<std::string_view, 4> kLedgersOfRow = {
      "Sharma & Sons, Mumbai", "Sales VAT 10%", "Sales VAT 10%", "Output VAT 10%"};
  constexpr std::array<std::string_view, 4> kCredits = {"", "5000", "5000", "1000"};
  AppendField(line, kLedgersOfRow[row]);
  AppendField(line, row == 0 ? "11000" : "");
  AppendField(line, kCredits[row]);
  AppendField(line, row == 0 ? "New Ref" : "");
  AppendField(line, row == 0 ? "INV/" + number : "");
  AppendField(line, row == 0 ? "30 Days" : "");
  AppendField(line, row == 0 ? "11000" : "");
  const bool isStock = row == 1 || row == 2;
  AppendField(line, isStock ? "Item " + item : "");
  AppendField(line, isStock ? "50" : "");
  AppendField(line, isStock ? "Nos" : "");
  AppendField(line, isStock ? "100" : "");
  AppendField(line, isStock ? "Main Location" : "");
  line += "\r\n";
}

constexpr int kRegisterAmounts = 8;  // the total and what it consists of

void AppendRegisterRow(std::uint64_t serial, std::string& line) {
  const std::string number = std::to_string(serial);
  line += "05-04-2024,Sales,REG-" + number + ",R/" + number + ",PO-" + number;
  AppendField(line, "Sharma & Sons, Mumbai");
  AppendField(line, "New Ref");
  AppendField(line, "R/" + number);
  AppendField(line, "30 Days");
  AppendField(line, "7000");
  AppendField(line, "7000");
  for (int part = 1; part < kRegisterAmounts; ++part) AppendField(line, "1000");
  AppendField(line, "Goods sold against the order of the buyer");
  line += "\r\n";
}

void AppendMapRow(std::uint64_t serial, std::string& line) {
  const std::string part = std::to_string(serial - 1);
  line += serial == 1 ? "TotalAmount,Auto,Dr,1"
                      : "Part" + part + ",Sales Part " + part + ",Cr," + std::to_string(serial);
  line += "\r\n";
}

struct SheetSource {
  std::string name;
  std::string csv;
};

/// Puts the CSV files, which are then gone, into a workbook as its sheets.
std::uint64_t MakeWorkbook(const std::string& path, const std::vector<SheetSource>& sheets) {
  std::vector<std::string> command{"/usr/bin/python3", BENCH_FOLDER "/make_workbook.py", path};
  for (const SheetSource& sheet : sheets) command.insert(command.end(), {sheet.csv, sheet.name});
  const Measured made = RunChild(command);
  for (const SheetSource& sheet : sheets) std::filesystem::remove(sheet.csv);
  if (!made.succeeded) throw std::runtime_error("The workbook was not made; is xlwt installed?");
  return std::filesystem::file_size(path);
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
  return MakeWorkbook(path, {{"TRANSACTIONS", csv}});
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

std::uint64_t WriteLedgersCsv(const std::string& path, std::uint64_t rows) {
  return WriteCsv(path,
                  "Name,Parent,BillWiseOn,Address1,Address2,State,PinCode,OpeningBillDate,"
                  "OpeningName,OpeningCreditPeriod,OpeningBalance\r\n",
                  rows + 1, [&](std::uint64_t serial, std::string& line) {
                    if (serial <= rows) return AppendLedgerRow(serial, line);
                    line += "END,,,,,,,,,,\r\n";
                  });
}

std::uint64_t WriteStockItemsGstCsv(const std::string& path, std::uint64_t rows) {
  return WriteCsv(path,
                  "SrNo,Name,NameAlias,Parent,BaseUnits,SupplyType,ApplicableFrom,HSNCode,"
                  "HSNDescription,Taxability,GSTRate,CessRate,OpeningQty,OpeningRate,"
                  "OpeningValue\r\n",
                  rows, [](std::uint64_t serial, std::string& line) {
                    const std::string number = std::to_string(serial);
                    line += number;
                    AppendField(line, "Wood Screw No. " + number);
                    AppendField(line, "WS" + number);
                    AppendField(line, "Fasteners");
                    line += ",Nos,Goods,01-04-2025,7318,Screws and bolts,Taxable,";
                    line += serial % 2 == 0 ? "18,1," : "28,12,";
                    line += number + " Nos,1.25/Nos," + number + ".50\r\n";
                  });
}

std::uint64_t WriteVatCsv(const std::string& path, std::uint64_t rows) {
  return WriteCsv(
      path,
      "SrNo,ID,VchType,VchNo,VchDate,RefNo,Narration,Ledger,Debit,Credit,AdjMethod,AdjName,"
      "AdjDate,AdjAmount,ItemName,Quantity,Unit,Rate,GodownName\r\n",
      rows, AppendVatRow);
}

std::uint64_t WriteRegisterXls(const std::string& path, std::uint64_t rows) {
  std::string header =
      "VchDate,VchType,ID,VchNo,RefNo,Ledger,AdjMethod,AdjName,AdjDate,AdjAmount,TotalAmount";
  for (int part = 1; part < kRegisterAmounts; ++part) header += ",Part" + std::to_string(part);
  WriteCsv(path + ".csv", header + ",Narration\r\n", rows, AppendRegisterRow);
  WriteCsv(path + ".map.csv", "ColumnName,LedgerName,LedgerSign,Order\r\n", kRegisterAmounts,
           AppendMapRow);
  return MakeWorkbook(
      path, {{"VOUCHERREGISTER", path + ".csv"}, {"VOUCHERREGISTERMap", path + ".map.csv"}});
}

}  // namespace vorlane::bench
