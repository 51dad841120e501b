#include "formats/format_posting.h"

#include <memory>
#include <optional>
#include <utility>

#include "form/grid_reader.h"
#include "form/row_outcome.h"
#include "formats/format_rows.h"
#include "formats/template_expansion.h"
#include "gateway/import_digest.h"
#include "gateway/import_envelope.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::formats {

using form::ImportForm;
using platform::Failure;
using platform::XmlDocument;
using platform::XmlNode;

namespace {

constexpr std::string_view kVoucherGroup = "VOUCHER";
constexpr std::string_view kKeyColumns[] = {"VCHTYPE", "VCHNO", "VCHDATE"};
constexpr std::string_view kIdKey = "ID";
/// Stands for no voucher in hand; a key that no row should have.
constexpr std::string_view kNoneHeld = "00";

FormatHead HeadOf(ImportForm& importForm, const std::string& name) {
  std::optional<FormatHead> head = ReadFormatHead(importForm.services.store, name);
  if (head && !head->type.empty()) return std::move(*head);
  throw Failure(platform::failure_number::kObjectNotSet, "Custom format",
                head ? "The format \"" + name +
                           "\" has no type word, so its document has no top "
                           "element."
                     : "There is no format with the name \"" + name + "\".");
}

/// A document on its way: what the templates write into, and what is sent.
class FormatDocument {
 public:
  FormatDocument(ImportForm& importForm, const FormatHead& head, const std::string& company,
                 bool usesOtherEnvelope)
      : form_(importForm),
        head_(head),
        envelope_(usesOtherEnvelope
                      ? gateway::NewImportEnvelopeV1(company, importForm.services.reporter)
                      : gateway::NewImportEnvelope(company, importForm.services.reporter)) {
    XmlNode* data = gateway::DataElement(envelope_, usesOtherEnvelope ? "//DATA" : "//REQUESTDATA");
    gateway::DocumentBuilder builder(*envelope_, form_.services.reporter);
    XmlNode* message = builder.AddElement(data, "TALLYMESSAGE");
    builder.AddAttribute(message, "xmlns:UDF", "TallyUDF");
    top_ = builder.AddElement(message, head_.type);
  }

  void AddAttributes(TemplateExpander& expander, std::size_t row) {
    expander.ExpandAttributes(*envelope_, top_, head_.number, head_.type, row);
  }
  void AddRow(TemplateExpander& expander, std::size_t row, int recordNo) {
    expander.ExpandGroup(*envelope_, top_, head_.number, head_.type, row, 1, recordNo, 1);
  }

  std::string Xml() const { return envelope_->Xml(); }

 private:
  ImportForm& form_;
  const FormatHead& head_;
  std::optional<XmlDocument> envelope_;
  XmlNode* top_ = nullptr;
};

/// Gives the digest. A digest is no XML, so the second reading hands it back.
std::string Send(ImportForm& importForm, std::string xmlText) {
  return gateway::ParseImportResult(importForm.services.gateway.SendToGateway(xmlText),
                                    importForm.services.reporter);
}

/// The key of the voucher that a row belongs to.
using KeyOf = std::string (*)(ImportForm&, const FormatHead&, std::size_t row);

std::string KeyByFormat(ImportForm& importForm, const FormatHead& head, std::size_t row) {
  const auto value = [&](std::string_view tag) {
    return GetFieldValue(importForm, kVoucherGroup, tag, head.number, row);
  };
  return value(kKeyTags[0]) + "-" + value(kKeyTags[1]) + "-" + value(kKeyTags[2]);
}

std::string KeyByColumns(ImportForm& importForm, const FormatHead&, std::size_t row) {
  form::GridReader reader(importForm);
  reader.MoveTo(row);
  return reader.Required(kKeyColumns[0]) + "-" + reader.Required(kKeyColumns[1]) + "-" +
         reader.Required(kKeyColumns[2]);
}

class VoucherFormatRun {
 public:
  VoucherFormatRun(ImportForm& importForm, KeyOf keyOf)
      : form_(importForm),
        keyOf_(keyOf),
        head_(HeadOf(importForm, importForm.cmbTableName.text)),
        expander_(importForm),
        marker_(importForm),
        hasId_(importForm.FindListedColumn(kIdKey) >= 0) {}

  void Run() {
    form_.CurrentCompany = form_.cmbCurrentCompanyList.text;
    form_.TabData = form::DataTab::Transactions;
    form_.stat("msg", "");
    const std::size_t rowCount = form_.GR1.RowCount();
    for (std::size_t row = 1; row <= rowCount; ++row) {
      TakeRow(row);
      form_.services.face.Progress(row, rowCount);
    }
    form_.stat("msg", "Finished Posing of Data.");
  }

 private:
  void TakeRow(std::size_t row) {
    const std::string key = Key(row);
    if (prevVoucherKey_.empty()) return;  // an empty ID: nothing after it is sent
    const bool isEmpty = form_.IsEmptyRow(row);
    if (key != prevVoucherKey_) BreakVoucher(row, key, isEmpty);
    if (!isEmpty) {
      if (!document_) FailWithoutDocument(key);
      form_.GR1.SetTaken(row);
      document_->AddRow(expander_, row, recordNo_++);
    }
    form_.services.face.LetEventsRun();
  }

  // A document that an empty row ended stays in hand: rows behind it send it
  // once more before they start their own. Tally takes it as the same voucher.
  void BreakVoucher(std::size_t row, const std::string& key, bool isEmpty) {
    const bool isFirst = prevVoucherKey_ == kNoneHeld;
    if (!isFirst) {
      SendDocument(row - 1);
      ++documentNumber_;
    }
    prevVoucherKey_ = key;
    if (!isFirst && isEmpty) return;
    recordNo_ = 1;
    document_ = std::make_unique<FormatDocument>(form_, head_, form_.CurrentCompany, false);
    document_->AddAttributes(expander_, row);
  }

  void SendDocument(std::size_t lastRow) {
    if (!document_) FailWithoutDocument(prevVoucherKey_);
    marker_.MarkVoucher(lastRow, prevVoucherKey_, Send(form_, document_->Xml()));
    form_.stat("msg", "Processed Document: " + std::to_string(documentNumber_));
  }

  std::string Key(std::size_t row) {
    std::string key = keyOf_(form_, head_, row);
    if (!hasId_) return key;
    return std::string(form_.GR1.Text(row, form_.GR1.ColumnIndex(kIdKey)));
  }

  [[noreturn]] static void FailWithoutDocument(const std::string& key) {
    throw Failure(
        platform::failure_number::kObjectNotSet, "Custom format",
        "The key \"" + key + "\" of the first row starts no document; it stands for none.");
  }

  ImportForm& form_;
  KeyOf keyOf_;
  FormatHead head_;
  TemplateExpander expander_;
  form::VoucherRowMarker marker_;
  bool hasId_;
  std::unique_ptr<FormatDocument> document_;
  std::string prevVoucherKey_{kNoneHeld};
  int documentNumber_ = 1;
  int recordNo_ = 1;
};

void PostVouchers(ImportForm& importForm, KeyOf keyOf) {
  importForm.Trap("F01-0023", [&] { VoucherFormatRun(importForm, keyOf).Run(); });
}

}  // namespace

std::string GetFieldValue(ImportForm& importForm, std::string_view groupName,
                          std::string_view tagName, std::int32_t format, std::size_t row) {
  const std::optional<TagRow> tag = FindTag(importForm.services.store, format, groupName, tagName);
  if (!tag) return {};
  if (tag->fixedValue) return *tag->fixedValue;
  if (!tag->field) return {};
  const form::ImportGrid& grid = importForm.GR1;
  std::string field = platform::UpperCase(*tag->field);
  if (field.find("{#") == std::string::npos) {
    return std::string(grid.Text(row, grid.ColumnIndex(field)));
  }
  field = platform::ReplaceAll(platform::ReplaceAll(std::move(field), "{#", ""), "}", "");
  const double position = platform::Val(field);
  if (position < 1 || position > static_cast<double>(grid.ColumnCount())) {
    throw Failure(platform::failure_number::kSubscriptOutOfRange, "Custom format",
                  "The tag " + std::string(tagName) + " asks for column " +
                      platform::NumberText(position) + "; the source has columns 1 to " +
                      std::to_string(grid.ColumnCount()) + ".");
  }
  return std::string(grid.Text(row, static_cast<std::size_t>(position)));
}

std::string RowPoster::Document(const std::string& formatName, const std::string& companyName,
                                std::size_t row) {
  const FormatHead head = HeadOf(form_, formatName);
  FormatDocument document(form_, head, companyName, head.source == "ALT");
  document.AddAttributes(expander_, row);
  document.AddRow(expander_, row, 1);
  return document.Xml();
}

std::string RowPoster::CustomRowPost(const std::string& companyName, std::size_t row) {
  std::string digest;
  form_.Trap("C03-0006", [&] {
    const std::string name = platform::RemoveBlanks(form_.cmbTableName.text);
    digest = Send(form_, Document(name, companyName, row));
  });
  return digest;
}

void PostCustomFormat(ImportForm& importForm) { PostVouchers(importForm, KeyByFormat); }
void PostTransactionGST(ImportForm& importForm) { PostVouchers(importForm, KeyByColumns); }

form::DeclaredColumns CustomFormatColumns() { return {{kIdKey, false, "", ""}}; }

form::DeclaredColumns TransactionGSTColumns() {
  form::DeclaredColumns all;
  for (const std::string_view key : kKeyColumns) all.push_back({key, true, "", ""});
  all.push_back({kIdKey, false, "", ""});
  return all;
}

}  // namespace vorlane::formats
