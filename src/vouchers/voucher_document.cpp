#include "vouchers/voucher_document.h"

#include <optional>

#include "errors/trap.h"
#include "gateway/import_envelope.h"
#include "vouchers/voucher_walk.h"

namespace vorlane::vouchers {

namespace {

constexpr std::string_view kWhereWrite = "C01-0020";

/// The columns that the tags read, by position; a tag without one reads a null.
std::string ColumnList(std::string_view first, std::span<const VoucherTag> tags) {
  std::string columns(first);
  for (const VoucherTag& tag : tags) {
    columns += ", ";
    columns += tag.rule == TagRule::Constant ? std::string_view("null") : tag.column;
    if (tag.rule == TagRule::BankEntryName) columns += ", Date_";
  }
  return columns;
}

std::string RowsOfVoucherSql(const VoucherList& list) {
  std::string columns(list.rowId);
  // What a list reads besides its tags stands in front of them.
  if (list.shape == ListShape::ByCategory) columns += ", Category_";
  if (list.rows != RowRule::Every) columns += ", Amount_";
  std::string sql = "Select " + ColumnList(columns, list.tags) + " from ";
  return sql.append(list.table).append(" where CompanyName=? and FK_VchID=?");
}

std::string RowsSql(const VoucherList& list) {
  std::string sql = RowsOfVoucherSql(list);
  if (!list.parentKey.empty()) sql.append(" and ").append(list.parentKey).append("=?");
  if (list.rowOrder.empty()) {
    sql.append(" Order By val(").append(list.rowId).append(")");
  } else {
    sql.append(" Order By ").append(list.rowOrder);
  }
  return sql;
}

}  // namespace

VoucherDocumentWriter::VoucherDocumentWriter(staging::StagingStore& store,
                                             gateway::TallyGateway& tally)
    : store_(store),
      tally_(tally),
      headSql_("Select " + ColumnList("GUID_, VoucherTypeName_", kHeadTags) +
               " from Voucher where CompanyName=? and VchID=? Order By val(VchID)"),
      beforeHead_(PrepareLists(kListsBeforeHead)),
      afterHead_(PrepareLists(kListsAfterHead)) {}

VoucherDocumentWriter::ListRead VoucherDocumentWriter::PrepareList(const VoucherList& list) {
  std::string probeSql = list.parentKey.empty() ? "" : RowsOfVoucherSql(list) + " limit 1";
  return {&list, RowsSql(list), std::move(probeSql), PrepareLists(list.nested)};
}

std::vector<VoucherDocumentWriter::ListRead> VoucherDocumentWriter::PrepareLists(
    std::span<const VoucherList* const> lists) {
  std::vector<ListRead> reads;
  for (const VoucherList* list : lists) reads.push_back(PrepareList(*list));
  return reads;
}

platform::XmlDocument VoucherDocumentWriter::BuildDocument(std::string_view companyName,
                                                           std::string_view vchID,
                                                           std::string_view action) {
  errors::Reporter& reporter = tally_.Reporter();
  auto envelope = gateway::NewImportEnvelope(companyName, reporter);
  platform::XmlNode* data = gateway::DataElement(envelope, "//REQUESTDATA");
  gateway::DocumentBuilder builder(*envelope, reporter);
  platform::XmlNode* message = builder.AddElement(data, "TALLYMESSAGE");
  builder.AddAttribute(message, "xmlns:UDF", "TallyUDF");
  platform::XmlNode* voucher = builder.AddElement(message, "VOUCHER");
  const staging::ReadBracket bracket(store_);
  VoucherWalk walk(*this, builder, companyName, vchID);
  walk.WriteVoucher(voucher, action);
  return std::move(*envelope);
}

std::string VoucherDocumentWriter::WriteVoucherDocument(
    std::string_view companyName, std::string_view vchID, std::string_view action,
    const std::function<void()>& beforeSending) {
  std::string digest;
  std::optional<platform::XmlDocument> document;
  errors::Trap(tally_.Reporter(), kWhereWrite,
               [&] { document = BuildDocument(companyName, vchID, action); });
  if (beforeSending) beforeSending();
  if (!document) return digest;
  errors::Trap(tally_.Reporter(), kWhereWrite, [&] { digest = tally_.SendToGateway(*document); });
  return digest;
}

}  // namespace vorlane::vouchers
