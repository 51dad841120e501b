#pragma once

#include <string>
#include <string_view>

#include "staging/record_columns.h"
#include "staging/writers.h"
#include "tests/gateway/gateway_fixture.h"
#include "tests/voucher_text.h"
#include "vouchers/voucher_document.h"

namespace vorlane::vouchers {

using tests::TagLines;

/// A record whose every field holds its own name, so that a document shows what
/// goes where.
template <class Record>
Record Named() {
  Record record;
  for (const auto& column : staging::kRecordColumns<Record>) record.*column.field = column.column;
  return record;
}

/// Staged rows of the voucher "1" of one company, and the document that they make.
class VoucherTest : public gateway::GatewayTest {
 protected:
  static constexpr std::string_view kCompany = "Practice Traders";

  /// What stands inside the VOUCHER element, head tags of an empty head included.
  std::string Inside() {
    const std::string voucher =
        tests::VoucherOf(documents_.BuildDocument(kCompany, "1", "Create").Xml());
    const std::size_t from = voucher.find('\n') + 1;
    return voucher.substr(from, voucher.rfind('\n') - from);
  }
  void AddLedger(const staging::LedgerEntryRec& entry, std::string_view id = "1") {
    writers_.AddLedgerEntry(kCompany, entry, "1", id);
  }
  void AddAllLedger(const staging::LedgerEntryRec& entry, std::string_view id = "1") {
    writers_.AddAllLedgerEntry(kCompany, entry, "1", id);
  }
  void AddCost(const char* category, const char* name, std::string_view id,
               std::string_view ldEID = "1") {
    writers_.AddCategoryAllocation(kCompany, {category, name, "5"}, "1", ldEID, id);
  }
  /// Past the writer, which keeps one description a stock line.
  void AddDescription(std::string_view text, std::string_view inEID, std::string_view budID = "1") {
    const std::string_view texts[] = {kCompany, inEID, budID, text};
    store_.Execute(
        "Insert into BASICUSERDESCRIPTION (CompanyName, FK_VchID, FK_InEID, BUDID, "
        "BasicDescription_) values (?, '1', ?, ?, ?)",
        texts);
  }

  staging::StagingStore store_{folder_ / "Vorlane20.DAT"};
  staging::StagingWriters writers_{store_, reporter_};
  VoucherDocumentWriter documents_{store_, tally_};
};

}  // namespace vorlane::vouchers
