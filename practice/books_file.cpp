#include "practice/books_file.h"

#include <utility>

#include "platform/runtime/failure.h"

namespace vorlane::practice {
namespace {

namespace number = platform::failure_number;

// "VPrB": tells the file from databases of other programs.
constexpr std::int64_t kApplicationId = 0x56507242;
constexpr std::int64_t kVersion = 1;

constexpr const char* kSchema[] = {
    "Create table company (id integer primary key, name text not null, last_voucher integer)",
    "Create table master (company integer, kind text, id integer, name text, alias text, "
    "parent text, prevents_duplicates integer, primary key (company, kind, id)) without rowid",
    "Create table voucher (company integer, id integer, remote_id text, type text, number text, "
    "date text, party text, amount text, primary key (company, id)) without rowid",
    "Pragma application_id=1448112706",
    "Pragma user_version=1",
};

// Refuses what is not ours, before anything is written.
void MakeTables(Database& database) {
  const std::int64_t owner = database.Number("Pragma application_id");
  const bool empty = database.Number("Select count(*) from sqlite_master") == 0;
  if (owner != kApplicationId && !(owner == 0 && empty))
    database.Fail(number::kProviderError, "it is a database, but not of practice books");
  if (!empty && database.Number("Pragma user_version") != kVersion)
    database.Fail(number::kProviderError, "it is of another version of this program");
  database.Run("Pragma journal_mode=WAL");
  database.Run("Pragma synchronous=NORMAL");
  // Folding the log into the file waits for the disk, so it is done seldom.
  database.Run("Pragma wal_autocheckpoint=16000");
  Transaction transaction(database);
  if (empty)
    for (const char* statement : kSchema) database.Run(statement);
  // A file that can only be read is told now, and not by the first import.
  database.Run("Update company set id=id");
  transaction.Commit();
}

Database Opened(const std::filesystem::path& file) {
  Database database(file);
  MakeTables(database);
  return database;
}

}  // namespace

BooksFile::BooksFile(const std::filesystem::path& file)
    : database_(Opened(file)),
      putMaster_(database_, "Replace into master values (?,?,?,?,?,?,?)"),
      removeMaster_(database_, "Delete from master where company=? and kind=? and id=?"),
      putVoucher_(database_, "Replace into voucher values (?,?,?,?,?,?,?,?)"),
      removeVoucher_(database_, "Delete from voucher where company=? and id=?"),
      setLastVoucher_(database_, "Update company set last_voucher=? where id=?") {}

std::vector<CompanyBooks> BooksFile::Load() {
  std::vector<CompanyBooks> companies;
  std::map<std::string, std::int64_t> ids;
  Statement read(database_, "Select id, name, last_voucher from company order by id");
  while (read.Step()) {
    CompanyBooks& books = companies.emplace_back(read.Text(1), CompanyBooks::Start::Bare);
    const std::int64_t id = ids[books.Name()] = read.Number(0);
    LoadMasters(id, books);
    LoadVouchers(id, books);
    books.RestoreLastVoucherId(static_cast<int>(read.Number(2)));
  }
  ids_ = std::move(ids);
  return companies;
}

void BooksFile::LoadMasters(std::int64_t company, CompanyBooks& books) {
  Statement read(database_,
                 "Select id, name, alias, parent, prevents_duplicates from master "
                 "where company=? and kind=? order by id");
  for (const MasterKind& kind : kMasterKinds) {
    read.Bind(company).Bind(kind.element);
    while (read.Step())
      books.Restore(kind.kind, static_cast<int>(read.Number(0)),
                    {read.Text(1), read.Text(2), read.Text(3), read.Number(4) != 0});
  }
}

void BooksFile::LoadVouchers(std::int64_t company, CompanyBooks& books) {
  Statement read(database_,
                 "Select id, remote_id, type, number, date, party, amount from voucher "
                 "where company=? order by id");
  read.Bind(company);
  while (read.Step())
    books.RestoreVoucher(
        static_cast<int>(read.Number(0)),
        {read.Text(1), read.Text(2), read.Text(3), read.Text(4), read.Text(5), read.Text(6)});
}

void BooksFile::Add(const CompanyBooks& company) {
  Transaction transaction(database_);
  Statement(database_, "Insert into company (name, last_voucher) values (?,?)")
      .Bind(company.Name())
      .Bind(company.Vouchers().LastId())
      .Run();
  const std::int64_t id = database_.Number("Select last_insert_rowid()");
  for (const MasterKind& kind : kMasterKinds)
    for (const auto& [master, ignored] : company.Masters(kind.kind))
      WriteMaster(id, kind.kind, master, company);
  for (const auto& [voucher, ignored] : company.Vouchers().All())
    WriteVoucher(id, voucher, company.Vouchers());
  transaction.Commit();
  ids_[company.Name()] = id;
}

void BooksFile::Save(const CompanyBooks& company, const Changes& changes) {
  if (changes.masters.empty() && changes.vouchers.empty()) return;
  const std::int64_t id = ids_.at(company.Name());
  Transaction transaction(database_);
  for (const auto& [kind, master] : changes.masters) WriteMaster(id, kind, master, company);
  for (const int voucher : changes.vouchers) WriteVoucher(id, voucher, company.Vouchers());
  if (!changes.vouchers.empty()) setLastVoucher_.Bind(company.Vouchers().LastId()).Bind(id).Run();
  transaction.Commit();
}

void BooksFile::WriteMaster(std::int64_t company, Kind kind, int id, const CompanyBooks& books) {
  const std::string_view element = RowOf(kind).element;
  const auto found = books.Masters(kind).find(id);
  if (found == books.Masters(kind).end()) {
    removeMaster_.Bind(company).Bind(element).Bind(id).Run();
    return;
  }
  const Master& master = found->second;
  putMaster_.Bind(company).Bind(element).Bind(id);
  putMaster_.Bind(master.name).Bind(master.alias).Bind(master.parent);
  putMaster_.Bind(master.preventsDuplicates ? 1 : 0).Run();
}

void BooksFile::WriteVoucher(std::int64_t company, int id, const VoucherShelf& shelf) {
  const auto found = shelf.All().find(id);
  if (found == shelf.All().end()) {
    removeVoucher_.Bind(company).Bind(id).Run();
    return;
  }
  const Voucher& voucher = found->second;
  putVoucher_.Bind(company).Bind(id).Bind(voucher.remoteId).Bind(voucher.type);
  putVoucher_.Bind(voucher.number).Bind(voucher.date).Bind(voucher.party);
  putVoucher_.Bind(voucher.amount).Run();
}

}  // namespace vorlane::practice
