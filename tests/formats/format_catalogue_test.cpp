#include "formats/format_catalogue.h"

#include "platform/runtime/failure.h"
#include "tests/staging/store_fixture.h"

namespace vorlane::formats {
namespace {

class FormatCatalogueTest : public staging::StoreTest {
 protected:
  void AddFormat(const std::string& name, const std::string& type) {
    store_->Execute("Insert into VorlaneMst_ (TName, TType) values (" + name + ", " + type + ")");
  }
};

TEST_F(FormatCatalogueTest, FindsAFormatByItsExactName) {
  AddFormat("'MY LEDGERS'", "'LEDGER'");
  EXPECT_EQ(GetCustomFormatName(*store_, "MY LEDGERS"), "MY LEDGERS");
  EXPECT_EQ(IsCustomFormat(*store_, "MY LEDGERS"), "LEDGER");
  for (const char* other : {"My Ledgers", "MY LEDGERS ", "MYLEDGERS", "", "x' or 'a'='a"}) {
    EXPECT_EQ(GetCustomFormatName(*store_, other), "") << other;
    EXPECT_EQ(IsCustomFormat(*store_, other), "") << other;
  }
}

TEST_F(FormatCatalogueTest, FormatWithoutATypeIsNone) {
  AddFormat("'DRAFT'", "null");
  EXPECT_EQ(GetCustomFormatName(*store_, "DRAFT"), "");
  EXPECT_EQ(IsCustomFormat(*store_, "DRAFT"), "");
}

TEST_F(FormatCatalogueTest, EmptyTypeIsATypeOfNoLoop) {
  AddFormat("'DRAFT'", "''");
  EXPECT_EQ(GetCustomFormatName(*store_, "DRAFT"), "DRAFT");
  EXPECT_EQ(IsCustomFormat(*store_, "DRAFT"), "");
}

TEST_F(FormatCatalogueTest, FirstRowOfANameCounts) {
  AddFormat("'TWICE'", "'LEDGER'");
  AddFormat("'TWICE'", "'VOUCHER'");
  EXPECT_EQ(IsCustomFormat(*store_, "TWICE"), "LEDGER");
}

TEST_F(FormatCatalogueTest, FailuresOfTheStoreRise) {
  store_->Execute("Drop table VorlaneMst_");
  EXPECT_THROW(GetCustomFormatName(*store_, "X"), platform::Failure);
  EXPECT_THROW(IsCustomFormat(*store_, "X"), platform::Failure);
}

TEST_F(FormatCatalogueTest, FormatIsFoundByTheIndex) {
  staging::Statement plan =
      store_->Query("Explain query plan Select * from VorlaneMst_ where TName='X'");
  ASSERT_TRUE(plan.Step());
  EXPECT_NE(plan.TextOrEmpty("detail").find("(TName=?)"), std::string::npos);
}

}  // namespace
}  // namespace vorlane::formats
