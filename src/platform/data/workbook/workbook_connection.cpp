#include "platform/data/workbook/workbook_connection.h"

#include <new>
#include <utility>
#include <vector>

#include "platform/data/table_names.h"
#include "platform/data/workbook/compound_file.h"
#include "platform/data/workbook/sheet_table.h"
#include "platform/data/workbook/workbook.h"
#include "platform/data/workbook/xlsx_sheet_list.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

// Two cells can span a table of 16 million, which may be more than there is.
template <typename Work>
auto WithinMemory(const std::string& path, const Work& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    throw Failure(failure_number::kOutOfMemory, "Workbook",
                  path + ": the workbook needs more memory than there is.");
  }
}

class WorkbookConnection : public Connection {
 public:
  WorkbookConnection(std::string path, WorkbookStream stream)
      : path_(std::move(path)), workbook_(std::move(stream)) {}

  Recordset OpenSchema() override {
    std::vector<std::string> names;
    for (const WorkbookSheet& sheet : workbook_.Sheets()) names.push_back(sheet.name);
    return SchemaOf(names);
  }

  Recordset Open(const Query& query) override {
    return WithinMemory(path_, [&] {
      const SheetCells cells = workbook_.ReadCells(FindSheet(query.table));
      Recordset recordset =
          MakeSheetTable(cells, workbook_.SharedTexts(), workbook_.DatesFrom1904());
      if (!query.orderBy.empty()) OrderBy(recordset, query.orderBy, path_ + ": " + query.table);
      return recordset;
    });
  }

 private:
  const WorkbookSheet& FindSheet(const std::string& table) const {
    for (const WorkbookSheet& sheet : workbook_.Sheets()) {
      if (NamesSheet(table, sheet.name)) return sheet;
    }
    throw Failure(failure_number::kTableNotFound, "Workbook",
                  path_ + ": no sheet is listed as " + table + ".");
  }

  std::string path_;
  Workbook workbook_;
};

class WorkbookListConnection : public Connection {
 public:
  WorkbookListConnection(std::string path, std::vector<std::string> sheetNames)
      : path_(std::move(path)), sheetNames_(std::move(sheetNames)) {}

  Recordset OpenSchema() override { return SchemaOf(sheetNames_); }

  Recordset Open(const Query& query) override {
    throw Failure(failure_number::kFeatureNotBuilt, "Workbook",
                  path_ + ": .xlsx workbooks are listed only; " + query.table +
                      " cannot be read. Save the workbook as .xls.");
  }

 private:
  std::string path_;
  std::vector<std::string> sheetNames_;
};

}  // namespace

std::unique_ptr<Connection> OpenWorkbookImage(const std::string& path,
                                              std::span<const std::uint8_t> file) {
  return WithinMemory(path, [&]() -> std::unique_ptr<Connection> {
    return std::make_unique<WorkbookConnection>(path, ReadWorkbookStream(path, file));
  });
}

std::unique_ptr<Connection> OpenWorkbookListImage(const std::string& path,
                                                  std::span<const std::uint8_t> file) {
  return WithinMemory(path, [&]() -> std::unique_ptr<Connection> {
    return std::make_unique<WorkbookListConnection>(path, ListXlsxSheets(path, file));
  });
}

std::unique_ptr<Connection> OpenWorkbook(const ConnectionSpec& spec) {
  return OpenWorkbookImage(spec.path,
                           WithinMemory(spec.path, [&] { return ReadFileBytes(spec.path); }));
}

std::unique_ptr<Connection> OpenWorkbookList(const ConnectionSpec& spec) {
  return OpenWorkbookListImage(spec.path,
                               WithinMemory(spec.path, [&] { return ReadFileBytes(spec.path); }));
}

}  // namespace vorlane::platform
