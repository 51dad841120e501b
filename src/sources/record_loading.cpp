#include "sources/record_loading.h"

#include <algorithm>
#include <functional>

#include "formats/format_catalogue.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/format.h"
#include "platform/runtime/text.h"
#include "sources/import_types.h"
#include "sources/loader_rules.h"
#include "sources/row_repairs.h"
#include "sources/source_connections.h"

namespace vorlane::sources {

using form::Box;
using form::BoxIcon;
using form::ImportForm;
using form::ImportGrid;
using platform::Connection;
using platform::UpperCase;

namespace {

/// A load in hand: the loader's rules, the table it wants, and how to open it.
struct Load {
  const LoaderRules& rules;
  const std::string& sheet;
  std::function<std::string()> tableName;  ///< as the schema is to list it
  std::function<std::unique_ptr<Connection>()> open;
};

void AddEmptyRow(ImportForm& importForm) {
  importForm.GR1.AddRow();
  importForm.services.face.GridChanged();
}

void Refuse(ImportForm& importForm, const std::string& sheet) {
  importForm.GR1.Clear();
  // Two blanks stand in front of "<" and behind ">", for every kind of source.
  const std::string text =
      "Sheet named as  <" + UpperCase(sheet) + ">  not found in the specified Excel file.";
  importForm.ShowBox({text, "", BoxIcon::None});
  importForm.stat("msg", text);
  AddEmptyRow(importForm);
}

/// The table whose name matches with blanks removed on both sides; empty when
/// there is none.
std::string FindTable(Connection& connection, const std::string& name) {
  const std::string wanted = UpperCase(platform::RemoveBlanks(name));
  for (platform::Recordset schema = connection.OpenSchema(); !schema.Eof(); schema.MoveNext()) {
    const std::string listed(schema.Value("TABLE_NAME").value_or(""));
    if (UpperCase(platform::RemoveBlanks(listed)) == wanted) return listed;
  }
  return {};
}

/// The column that the ID of a row is built in, and the columns it is built of.
/// A source with an ID of its own, or without VchType, gets none.
class IdBuilder {
 public:
  explicit IdBuilder(ImportForm& importForm) : form_(importForm) {
    for (const std::string_view name : {"VchType", "VchNo", "VchDate", "RefNo"}) {
      const int column = importForm.FindListedColumn(name);
      if (column >= 0) columns_.push_back(static_cast<std::size_t>(column));
    }
    isOn_ = importForm.FindListedColumn("ID") < 0 && importForm.FindListedColumn("VchType") >= 0;
  }

  void AddColumn() {
    if (!isOn_) return;
    form_.GR1.AddColumn("ID", "ID");
    gridColumn_ = form_.GR1.ColumnCount();
  }

  /// Builds the ID of a listed row into its grid row. Rows of one voucher share
  /// the text.
  void Build(std::size_t listedRow, std::size_t gridRow) {
    if (!isOn_ || form_.IsEmptyRowEx(listedRow)) return;
    id_.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (i > 0) id_ += '-';
      id_ += form_.lstLedgerTree.Cell(listedRow, columns_[i]);
    }
    if (lastGridRow_ != 0 && lastGridRow_ + 1 == gridRow && id_ == lastId_) {
      form_.GR1.ShareTextFromAbove(gridRow, gridColumn_);
    } else {
      form_.GR1.SetText(gridRow, gridColumn_, id_);
      std::swap(id_, lastId_);
    }
    lastGridRow_ = gridRow;
  }

 private:
  ImportForm& form_;
  std::vector<std::size_t> columns_;
  bool isOn_ = false;
  std::size_t gridColumn_ = 0;
  std::string id_;
  std::string lastId_;
  std::size_t lastGridRow_ = 0;
};

/// Formats cells of the grid a second time, by their headers, as they are copied.
class CopyFormatter {
 public:
  CopyFormatter(ImportForm& importForm, const LoaderRules& rules)
      : grid_(importForm.GR1), pattern_(importForm.AmountFormat) {
    for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
      const auto& names = rules.formattedInCopy;
      const std::string header = UpperCase(grid_.Column(column).header);
      if (std::find(names.begin(), names.end(), header) != names.end()) columns_.push_back(column);
    }
  }

  void Format(std::size_t row) {
    for (const std::size_t column : columns_) {
      const std::string_view text = grid_.Text(row, column);
      formatted_.clear();
      pattern_.Apply(text, formatted_);
      if (formatted_ != text) grid_.SetText(row, column, formatted_);
    }
  }

 private:
  ImportGrid& grid_;
  platform::FormatPattern pattern_;
  std::vector<std::size_t> columns_;
  std::string formatted_;
};

void CopyToGrid(ImportForm& importForm, const platform::Recordset& recordset,
                const LoaderRules& rules) {
  ImportGrid& grid = importForm.GR1;
  grid.SetRedraw(false);
  grid.ShowSource(recordset.Fields(), recordset.Rows());
  IdBuilder ids(importForm);
  ids.AddColumn();
  grid.AddColumn(ImportGrid::kStatusKey, ImportGrid::kStatusHeader);
  CopyFormatter formatter(importForm, rules);
  const std::size_t records = recordset.RecordCount();
  grid.ReserveRows(records + 2);
  const std::string total = "/" + std::to_string(records);
  std::string progress;
  for (std::size_t record = 1; record <= records; ++record) {
    if (rules.copiesEmptyRows || !importForm.IsEmptyRowEx(record)) {
      const std::size_t row = grid.AddSourceRow(record - 1);
      formatter.Format(row);
      ids.Build(record, row);
    }
    progress.assign("Reading Records => ").append(std::to_string(record)).append(total);
    importForm.stat("msg", progress);
    importForm.services.face.Progress(record, records);
  }
  importForm.stat("msg", "");
  for (int i = 0; i < rules.emptyRowsAtEnd; ++i) grid.AddRow();
  grid.SetRedraw(true);
  importForm.services.face.GridChanged();
}

/// Ordered types are vouchers: they offer the check of masters, all others the
/// skipping of what exists.
void ShowBoxesFor(ImportForm& importForm, bool ordered) {
  importForm.chkChkMst.visible = ordered;
  importForm.chkSkipMst.visible = !ordered;
}

void LoadRows(ImportForm& importForm, const Load& load) {
  const LoaderRules& rules = load.rules;
  const std::string key = UpperCase(importForm.cmbTableName.text);
  const ImportType* type = FindImportType(key);
  const bool accepted = type && type->accepting & rules.accepts;
  // The store is asked only where its answer counts, so a locked one stops no
  // load of a plain type.
  const bool isFormat = (!accepted || rules.treatsFormatsAsVouchers) &&
                        formats::GetCustomFormatName(importForm.services.store, key) == key;
  if (!accepted && !isFormat) {
    if (type && type->reading & kRegister) {
      throw platform::Failure(
          platform::failure_number::kFeatureNotBuilt, "LoadRows",
          "Voucher registers are not built into this version yet; the register " + load.sheet +
              " was not loaded.");
    }
    return Refuse(importForm, load.sheet);
  }
  const std::unique_ptr<Connection> connection = load.open();
  const std::string table = FindTable(*connection, load.tableName());
  if (table.empty()) return AddEmptyRow(importForm);  // no message; the grid keeps its rows

  const bool asVoucher = isFormat && rules.treatsFormatsAsVouchers;
  const bool ordered = asVoucher || (type && type->reading & (kOrdered | rules.ordersAlso));
  if (rules.choosesBoxes) ShowBoxesFor(importForm, ordered);
  const platform::Recordset recordset = connection->Open({table, ordered ? "SrNo" : ""});
  importForm.lstLedgerTree.Bind(recordset);
  if (recordset.RecordCount() > 0 && (asVoucher || IsFilledDown(UpperCase(load.sheet)))) {
    FillDown(importForm.lstLedgerTree, rules);
    FormatColumns(importForm.lstLedgerTree, rules, importForm.DateFormat, importForm.AmountFormat);
  }
  CopyToGrid(importForm, recordset, rules);
}

}  // namespace

void PickTable(ImportForm& importForm, const std::string& entry) {
  importForm.cmbTableName.text = entry;
  cmbTableName_Click(importForm);
}

void cmbTableName_Click(ImportForm& importForm) {
  importForm.Trap("F01-0017", [&] {
    const std::string& text = importForm.cmbTableName.text;
    if (platform::EqualsNoCase(text, form::kTypePrompt)) return;
    const std::string sheet = platform::RemoveBlanks(text);
    const std::string& kind = importForm.TabSource.selected;
    if (kind == "Excel") {
      if (!HasExtension(importForm.txtFilePath, ".XLSX")) LoadExcelRows(importForm, sheet);
    } else if (kind == "Access") {
      LoadAccessRows(importForm, sheet, importForm.txtMDBUser, importForm.txtMDBPass);
    } else if (kind == "ODBC") {
      LoadODBCRows(importForm, sheet, importForm.txtODBCPath, importForm.txtODBCUser,
                   importForm.txtPass);
    }
  });
}

void LoadExcelRows(ImportForm& importForm, const std::string& sheet) {
  importForm.Trap(kExcelLoader.location, [&] {
    const std::string& path = importForm.txtFilePath;
    if (path.empty()) {
      importForm.ShowBox({"File Path not entered", "Vorlane 1.0", BoxIcon::Critical});
      importForm.stat("msg", "File Path not entered");
      return AddEmptyRow(importForm);
    }
    importForm.chkChkMst.visible = false;
    importForm.chkSkipMst.visible = false;
    if (platform::EqualsNoCase(importForm.cmbTableName.text, form::kTypePrompt)) {
      importForm.GR1.Clear();
      return AddEmptyRow(importForm);
    }
    const bool isText = HasExtension(path, ".CSV") || HasExtension(path, ".TXT");
    LoadRows(importForm,
             {kExcelLoader, sheet, [&] { return isText ? FileName(path) : sheet + "$"; },
              [&] { return OpenFileForRows(path); }});
  });
}

void LoadAccessRows(ImportForm& importForm, const std::string& sheet, const std::string& /*user*/,
                    const std::string& password) {
  importForm.Trap(kAccessLoader.location, [&] {
    LoadRows(importForm, {kAccessLoader, sheet, [&] { return sheet; },
                          [&] { return OpenAccess(importForm.txtMdbPath, password); }});
  });
}

void LoadODBCRows(ImportForm& importForm, const std::string& sheet, const std::string& dsn,
                  const std::string& user, const std::string& password) {
  importForm.Trap(kOdbcLoader.location, [&] {
    LoadRows(importForm, {kOdbcLoader, sheet, [&] { return sheet; },
                          [&] { return OpenOdbc(dsn, user, password); }});
  });
}

}  // namespace vorlane::sources
