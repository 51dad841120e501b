#include "staging/store.h"

#include <chrono>
#include <thread>

#include "staging/shipped_formats.h"
#include "tests/staging/store_fixture.h"

namespace vorlane::staging {
namespace {

namespace fs = std::filesystem;
namespace number = platform::failure_number;

TEST_F(StoreTest, MissingFileIsCreatedOnFirstUseAndNotBefore) {
  EXPECT_FALSE(fs::exists(file_));
  EXPECT_EQ(Value("Select count(*) from VorlaneMst_"), std::to_string(ShippedFormats().size()));
  EXPECT_EQ(Value("Select count(*) from EXCISEITEMGODOWN"), "0");
  store_.reset();
  std::vector<fs::path> left;
  for (const auto& entry : fs::directory_iterator(folder_)) left.push_back(entry.path());
  EXPECT_EQ(left, std::vector{file_}) << "drafts and journals are gone";
}

TEST_F(StoreTest, FileThatExistsIsUsedAsItIs) {
  MakeFile(
      "Create table VorlaneMst_ (TName text, TType text, TNo integer, TSource text);"
      "Insert into VorlaneMst_ values ('MINE', 'LEDGER', 7, null)");
  EXPECT_EQ(Value("Select TNo from VorlaneMst_"), "7");
  const platform::Failure failure = FailureOf([&] { store_->Execute("Delete from Voucher "); });
  EXPECT_EQ(failure.Number(), number::kTableNotFound);
  EXPECT_EQ(failure.Description(), "Staging store \"" + file_.string() +
                                       "\": a table is missing (no such table: Voucher) while "
                                       "running \"Delete from Voucher \".");
}

TEST_F(StoreTest, EmptyFileIsAFileWithoutTables) {
  MakeFile("");
  EXPECT_EQ(FailureOf([&] { store_->Execute("Delete from Voucher"); }).Number(),
            number::kTableNotFound);
}

TEST_F(StoreTest, JournalOfADeletedStoreIsNotPlayedBack) {
  store_->Execute("Insert into Address (CompanyName, Address_) values ('Old', 'x')");
  fs::copy(file_.string() + "-wal", folder_ / "kept");
  store_.reset();
  fs::remove(file_);
  fs::rename(folder_ / "kept", file_.string() + "-wal");
  store_.emplace(file_);
  EXPECT_EQ(Value("Select count(*) from Address"), "0");
}

TEST_F(StoreTest, ProgramsThatStartTogetherShareOneStore) {
  std::vector<std::thread> programs;
  for (int i = 0; i < 8; ++i) {
    programs.emplace_back([this, id = std::to_string(i)] {
      StagingStore store(file_);
      const std::string_view texts[] = {id};
      EXPECT_NO_THROW(store.Execute("Insert into Address (AdID) values (?)", texts));
    });
  }
  for (std::thread& program : programs) program.join();
  EXPECT_EQ(Value("Select count(*) from Address"), "8");
  store_.reset();
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST_F(StoreTest, FailedOpeningIsTriedAgain) {
  StagingStore store(folder_ / "later" / "Vorlane20.DAT");
  const platform::Failure failure = FailureOf([&] { store.Execute("Delete from Voucher"); });
  EXPECT_EQ(failure.Number(), number::kPathNotFound);
  EXPECT_EQ(failure.Description(),
            "Staging store \"" + store.File().string() + "\" cannot be created: the folder \"" +
                (folder_ / "later").string() + "\" cannot be opened (No such file or directory).");
  fs::create_directory(folder_ / "later");
  EXPECT_NO_THROW(store.Execute("Delete from Voucher"));
}

struct BadFile {
  const char* name;
  std::function<void(const fs::path&)> make;
  std::int32_t number;
  const char* reason;
};
class BadFileTest : public StoreTest, public testing::WithParamInterface<BadFile> {};

TEST_P(BadFileTest, FailsNamingTheFile) {
  GetParam().make(file_);
  const platform::Failure failure = FailureOf([&] { store_->Execute("Delete from Voucher"); });
  EXPECT_EQ(failure.Number(), GetParam().number);
  EXPECT_EQ(failure.Source(), "Staging store");
  const std::string start = "Staging store \"" + file_.string() + "\": " + GetParam().reason;
  EXPECT_EQ(failure.Description().substr(0, start.size()), start);
  EXPECT_FALSE(fs::exists(file_.string() + "-wal"));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BadFileTest,
    testing::Values(
        BadFile{"Folder", [](const fs::path& file) { fs::create_directory(file); },
                number::kPathFileAccess, "the file or its folder cannot be opened ("},
        BadFile{"NoDatabase",
                [](const fs::path& file) { std::ofstream(file) << std::string(4096, 'x'); },
                number::kProviderError, "the file is not an SQLite database ("},
        BadFile{"DanglingLink",
                [](const fs::path& file) { fs::create_symlink("nowhere/at/all", file); },
                number::kPathFileAccess, "the file or its folder cannot be opened ("}),
    [](const auto& bad) { return bad.param.name; });

TEST_F(StoreTest, LockedStoreFailsWithinSecondsAndRecovers) {
  store_->Execute("Delete from Voucher");
  {
    Locker other(file_);
    const auto start = std::chrono::steady_clock::now();
    const platform::Failure failure =
        FailureOf([&] { store_->Execute("Insert into Address (Address_) values ('x')"); });
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(failure.Number(), number::kProviderError);
    EXPECT_EQ(failure.Description(),
              "Staging store \"" + file_.string() +
                  "\": another program holds the file locked (database is locked) while running "
                  "\"Insert into Address (Address_) values ('x')\".");
    EXPECT_EQ(Value("Select count(*) from Address"), "0") << "reading goes on";
  }
  EXPECT_NO_THROW(store_->Execute("Insert into Address (Address_) values ('x')"));
}

TEST_F(StoreTest, StoreLockedBeforeItIsOpenedFails) {
  MakeFile("Create table Voucher (CompanyName text)");
  Locker other(file_);
  EXPECT_NE(FailureOf([&] { store_->Execute("Delete from Voucher"); })
                .Description()
                .find("another program holds the file locked"),
            std::string::npos);
}

TEST_F(StoreTest, ReadOnlyAndFullStoresSaySo) {
  store_->Execute("Pragma query_only=1");
  EXPECT_EQ(FailureOf([&] { store_->Execute("Delete from Voucher"); }).Number(),
            number::kPermissionDenied);
  store_->Execute("Pragma query_only=0");
  store_->Execute("Pragma max_page_count=1");
  const std::string large(100000, 'x');
  const std::string_view texts[] = {large};
  EXPECT_EQ(FailureOf([&] {
              store_->Execute("Insert into Address (Address_) values (?)", texts);
            }).Number(),
            number::kDiskFull);
}

TEST_F(StoreTest, ReadersSeeEachCallAsItReturns) {
  StagingStore reader(file_);
  store_->Execute("Insert into Address (AdID) values ('one')");
  const auto count = [&] {
    Statement read = reader.Query("Select count(*) from Address");
    read.Step();
    return std::string(read.TextOrEmpty(0));
  };
  EXPECT_EQ(count(), "1");
  {
    ReadBracket bracket(reader);
    ReadBracket inner(reader);
    EXPECT_EQ(count(), "1");
    store_->Execute("Insert into Address (AdID) values ('two')");
    EXPECT_EQ(count(), "1") << "a bracket sees one state";
  }
  EXPECT_EQ(count(), "2");
  EXPECT_NO_THROW(reader.Execute("Delete from Address"));
}

TEST_F(StoreTest, AWriteBracketEndsInOneStepAndUndoesNothing) {
  StagingStore reader(file_);
  const auto seen = [](StagingStore& store) {
    Statement read = store.Query("Select group_concat(Address_) from Address");
    read.Step();
    return std::string(read.TextOrEmpty(0));
  };
  const char* insert = "Insert into Address (CompanyName, FK_VchID, AdID, Address_) values ";
  {
    WriteBracket bracket(*store_);
    store_->Execute(std::string(insert) + "('Co', '1', '1', 'one')");
    EXPECT_THROW(store_->Execute(std::string(insert) + "('Co', '1', '2', 'two'), "
                                                       "('Co', '1', '1', 'again')"),
                 platform::Failure);
    {
      ReadBracket inside(*store_);
      EXPECT_EQ(seen(*store_), "one") << "a statement that fails undoes itself alone";
    }
    EXPECT_EQ(seen(reader), "");
    bracket.Close();
    EXPECT_EQ(seen(reader), "one");
    store_->Execute(std::string(insert) + "('Co', '1', '3', 'three')");
    EXPECT_EQ(seen(reader), "one,three") << "closed, it holds nothing back";
  }
  {
    WriteBracket left(*store_);
    store_->Execute("Delete from Address where AdID='3'");
  }
  EXPECT_EQ(seen(reader), "one") << "one that nobody closes ends the same way";
}

TEST_F(StoreTest, ReadsOfOneStatementStandInsideEachOther) {
  store_->Execute("Insert into Address (AdID, Address_) values ('1', 'a'), ('2', 'b')");
  const char* sql = "Select Address_ from Address where Address_ >= ?";
  std::string seen;
  Statement outer = store_->Query(sql, {"a"});
  while (outer.Step()) {
    Statement inner = store_->Query(sql, {outer.TextOrEmpty(0)});
    while (inner.Step()) seen.append(outer.TextOrEmpty(0)).append(inner.TextOrEmpty(0)) += ' ';
    EXPECT_FALSE(inner.Step()) << "does not start again";
  }
  EXPECT_EQ(seen, "aa ab bb ");
}

TEST_F(StoreTest, TextsComeBackAsTheyWentIn) {
  const std::string odd[] = {"",  " O'Brien \"&\" ",      std::string("a\0b", 3), "हिन्दी",
                             "?", std::string(70000, 'n')};
  for (const std::string& text : odd) {
    store_->Execute("Delete from Voucher");
    const std::string_view texts[] = {text};
    store_->Execute("Insert into Voucher (Narration_) values (?)", texts);
    Statement read = store_->Query("Select narration_, Reference_ from VOUCHER");
    ASSERT_TRUE(read.Step());
    EXPECT_EQ(read.Text("NARRATION_"), text);
    EXPECT_EQ(read.Text("reference_"), std::nullopt);
    EXPECT_EQ(read.TextOrEmpty("reference_"), "");
  }
}

TEST_F(StoreTest, EmptyViewThatPointsNowhereIsNotNull) {
  const std::string_view texts[] = {std::string_view{}};
  store_->Execute("Insert into Address (Address_) values (?)", texts);
  EXPECT_EQ(Value("Select Address_ from Address"), "");
}

TEST_F(StoreTest, ValOrdersIdsByNumber) {
  store_->Execute(
      "Insert into Address (AdID, Address_) values ('1', '10'), ('2', '9'), ('3', '11'), "
      "('4', 'x'), ('5', null), ('6', ' 2.5 Nos')");
  EXPECT_EQ(Rows("Select Address_ from Address Order By val(Address_)"),
            (std::vector<std::string>{"<null>", "x", " 2.5 Nos", "9", "10", "11"}));
}

TEST_F(StoreTest, BadStatementsFail) {
  const auto failureOf = [&](const char* sql) { return FailureOf([&] { store_->Execute(sql); }); };
  EXPECT_EQ(failureOf("Delete from Address where City_='x'").Number(),
            number::kNoValueForParameter);
  EXPECT_EQ(failureOf("Delete from Address where \"City_\"='x'").Number(),
            number::kNoValueForParameter);
  EXPECT_EQ(failureOf("Insert into Address (City_) values ('x')").Number(),
            number::kNoValueForParameter);
  EXPECT_EQ(failureOf("Delete from Address where AdID=?").Description(),
            "Staging store: 1 values are expected and 0 given in \"Delete from Address where "
            "AdID=?\".");
  for (const char* sql : {"", "Delete from Address; Delete from Voucher", "Delete form Address"}) {
    EXPECT_EQ(failureOf(sql).Number(), number::kProviderError) << sql;
  }
  Statement read = store_->Query("Select * from Address");
  EXPECT_EQ(FailureOf([&] { read.Column("City_"); }).Number(), number::kItemNotFound);
}

TEST_F(StoreTest, LongStatementIsShownByItsBeginning) {
  std::string sql = "Delete from Nowhere where A='";
  while (sql.size() < 1000) sql += "é";
  const std::string shown = FailureOf([&] { store_->Execute(sql + "'"); }).Description();
  EXPECT_LT(shown.size(), 500u);
  EXPECT_NE(shown.find("é...\""), std::string::npos) << "cut between characters: " << shown;
}

TEST_F(StoreTest, FormatNumbersAreWholeAndOf32Bits) {
  const auto read = [&](const std::string& value) {
    Statement row = store_->Query("Select " + value + " as TNo");
    row.Step();
    return row.Integer("TNo");
  };
  EXPECT_EQ(read("null"), std::nullopt);
  EXPECT_EQ(read("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(read("3.0"), 3);
  EXPECT_EQ(read("'12'"), 12);
  EXPECT_EQ(FailureOf([&] { read("2147483648"); }).Number(), number::kOverflow);
  EXPECT_EQ(FailureOf([&] { read("1.5"); }).Number(), number::kTypeMismatch);
  EXPECT_EQ(FailureOf([&] { read("'12x'"); }).Description(),
            "Staging store: column TNo holds \"12x\", which is no number, in \"Select '12x' as "
            "TNo\".");
}

}  // namespace
}  // namespace vorlane::staging
