#include "bench/bench_form.h"

#include <cstdlib>
#include <stdexcept>

#include "shell/options.h"
#include "sources/record_loading.h"
#include "sources/table_listing.h"

namespace vorlane::bench {

BenchFolder::BenchFolder() {
  std::string name = std::filesystem::temp_directory_path() / "vorlane-bench-XXXXXX";
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("No folder " + name);
  path_ = name;
}

BenchFolder::~BenchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

form::BoxAnswer NullFace::ShowBox(const form::Box& box) {
  if (firstBox_.empty()) firstBox_ = box.text;
  return form::BoxAnswer::Ok;
}

BenchForm::BenchForm(std::uint16_t port)
    : settings_(folder_ / "settings.ini"),
      reporter_(clock_, "BENCH", folder_.Path(),
                [this](const std::string& text, const std::string& title) {
                  face_.ShowBox({text, title, form::BoxIcon::Critical});
                }),
      gateway_(settings_, reporter_),
      store_(folder_ / "Vorlane20.DAT"),
      form_({settings_, clock_, gateway_, store_, reporter_, face_, folder_.Path()}) {
  form::OptionsFields options = shell::OptionsAsShown(form_);
  options.txtPort = std::to_string(port);
  shell::ConfirmOptions(form_, options);
  shell::ReadFormats(form_);
  form_.TabSource = {{"Excel"}, "Excel"};
}

void BenchForm::Load(const std::string& path, const std::string& importType) {
  form_.txtFilePath = path;
  sources::LoadExcelSheets(form_, path);
  Pick(path, importType);
}

void BenchForm::LoadAccess(const std::string& path, const std::string& importType) {
  form_.TabSource = {{"Access"}, "Access"};
  form_.txtMdbPath = path;
  sources::LoadAccessTables(form_, path, "", "");
  Pick(path, importType);
}

void BenchForm::LoadOdbc(const std::string& dsn, const std::string& user,
                         const std::string& password, const std::string& importType) {
  form_.TabSource = {{"ODBC"}, "ODBC"};
  form_.txtODBCPath = dsn;
  form_.txtODBCUser = user;
  form_.txtPass = password;
  sources::LoadODBCTables(form_, dsn, user, password);
  Pick(dsn, importType);
}

void BenchForm::Pick(const std::string& source, const std::string& importType) {
  sources::PickTable(form_, importType);
  RequireNoBox();
  if (form_.GR1.RowCount() < 3) {
    throw std::runtime_error(source + " has no table for " + importType + ", or no rows in it");
  }
}

void BenchForm::RequireNoBox() const {
  if (!face_.FirstBox().empty()) throw std::runtime_error("A box came up: " + face_.FirstBox());
}

}  // namespace vorlane::bench
