#include "practice/master_kinds.h"

#include <string>

#include "practice/names.h"

namespace vorlane::practice {

// clang-format off
const std::array<MasterKind, kKindCount> kMasterKinds{{
  {Kind::Group,         "GROUP",         "GROUPS",          "Group",
      {{{"PARENT", Kind::Group}}}},
  {Kind::Ledger,        "LEDGER",        "LEDGERS",         "Ledger",
      {{{"PARENT", Kind::Group, Need::Required}, {"CURRENCYNAME", Kind::Currency}}}},
  {Kind::Currency,      "CURRENCY",      "CURRENCIES",      "Currency",      {}},
  {Kind::Unit,          "UNIT",          "UNITS",           "Unit",
      {{{"BASEUNITS", Kind::Unit, Need::IfCompound},
        {"ADDITIONALUNITS", Kind::Unit, Need::IfCompound}}}},
  {Kind::Godown,        "GODOWN",        "GODOWNS",         "Godown",
      {{{"PARENT", Kind::Godown}}}},
  {Kind::StockGroup,    "STOCKGROUP",    "STOCKGROUPS",     "Stock Group",
      {{{"PARENT", Kind::StockGroup}, {"BASEUNITS", Kind::Unit}}}},
  {Kind::StockCategory, "STOCKCATEGORY", "STOCKCATEGORIES", "Stock Category",
      {{{"PARENT", Kind::StockCategory}}}},
  {Kind::StockItem,     "STOCKITEM",     "STOCKITEMS",      "Stock Item",
      {{{"PARENT", Kind::StockGroup}, {"CATEGORY", Kind::StockCategory},
        {"BASEUNITS", Kind::Unit}, {"ADDITIONALUNITS", Kind::Unit}}}},
  {Kind::CostCategory,  "COSTCATEGORY",  "COSTCATEGORIES",  "Cost Category", {}},
  {Kind::CostCentre,    "COSTCENTRE",    "COSTCENTRES",     "Cost Centre",
      {{{"PARENT", Kind::CostCentre}, {"CATEGORY", Kind::CostCategory}}}},
  {Kind::VoucherType,   "VOUCHERTYPE",   "VOUCHERTYPES",    "Voucher Type",
      {{{"PARENT", Kind::VoucherType, Need::Required}}}},
}};

const std::array<PredefinedMaster, kPredefinedCount> kPredefinedMasters{{
  // Every tree has the root "Primary", which a parent may name.
  {Kind::Group, "Primary",                  "",                    ""},
  {Kind::Group, "Branch / Divisions",       "",                    "Primary"},
  {Kind::Group, "Capital Account",          "",                    "Primary"},
  {Kind::Group, "Current Assets",           "",                    "Primary"},
  {Kind::Group, "Current Liabilities",      "",                    "Primary"},
  {Kind::Group, "Direct Expenses",          "Expenses (Direct)",   "Primary"},
  {Kind::Group, "Direct Incomes",           "Income (Direct)",     "Primary"},
  {Kind::Group, "Fixed Assets",             "",                    "Primary"},
  {Kind::Group, "Indirect Expenses",        "Expenses (Indirect)", "Primary"},
  {Kind::Group, "Indirect Incomes",         "Income (Indirect)",   "Primary"},
  {Kind::Group, "Investments",              "",                    "Primary"},
  {Kind::Group, "Loans (Liability)",        "",                    "Primary"},
  {Kind::Group, "Misc. Expenses (ASSET)",   "",                    "Primary"},
  {Kind::Group, "Purchase Accounts",        "",                    "Primary"},
  {Kind::Group, "Sales Accounts",           "",                    "Primary"},
  {Kind::Group, "Suspense A/c",             "",                    "Primary"},
  {Kind::Group, "Bank Accounts",            "",                    "Current Assets"},
  {Kind::Group, "Cash-in-Hand",             "",                    "Current Assets"},
  {Kind::Group, "Deposits (Asset)",         "",                    "Current Assets"},
  {Kind::Group, "Loans & Advances (Asset)", "",                    "Current Assets"},
  {Kind::Group, "Stock-in-Hand",            "",                    "Current Assets"},
  {Kind::Group, "Sundry Debtors",           "",                    "Current Assets"},
  {Kind::Group, "Duties & Taxes",           "",                    "Current Liabilities"},
  {Kind::Group, "Provisions",               "",                    "Current Liabilities"},
  {Kind::Group, "Sundry Creditors",         "",                    "Current Liabilities"},
  {Kind::Group, "Bank OD A/c",              "Bank OCC A/c",        "Loans (Liability)"},
  {Kind::Group, "Secured Loans",            "",                    "Loans (Liability)"},
  {Kind::Group, "Unsecured Loans",          "",                    "Loans (Liability)"},
  {Kind::Group, "Reserves & Surplus",       "Retained Earnings",   "Capital Account"},
  {Kind::Ledger, "Cash",                    "",                    "Cash-in-Hand"},
  {Kind::Ledger, "Profit & Loss A/c",       "",                    "Primary"},
  {Kind::Currency, "₹",                     "INR",                 ""},
  {Kind::Currency, "Rs.",                   "",                    ""},
  {Kind::Godown, "Primary",                 "",                    ""},
  {Kind::Godown, "Main Location",           "",                    "Primary"},
  {Kind::StockGroup, "Primary",             "",                    ""},
  {Kind::StockCategory, "Primary",          "",                    ""},
  {Kind::CostCategory, "Primary Cost Category", "",                ""},
  {Kind::CostCentre, "Primary",             "",                    ""},
  {Kind::VoucherType, "Attendance",           "", ""},
  {Kind::VoucherType, "Contra",               "", ""},
  {Kind::VoucherType, "Credit Note",          "", ""},
  {Kind::VoucherType, "Debit Note",           "", ""},
  {Kind::VoucherType, "Delivery Note",        "", ""},
  {Kind::VoucherType, "Job Work In Order",    "", ""},
  {Kind::VoucherType, "Job Work Out Order",   "", ""},
  {Kind::VoucherType, "Journal",              "", ""},
  {Kind::VoucherType, "Material In",          "", ""},
  {Kind::VoucherType, "Material Out",         "", ""},
  {Kind::VoucherType, "Memorandum",           "", ""},
  {Kind::VoucherType, "Payment",              "", ""},
  {Kind::VoucherType, "Payroll",              "", ""},
  {Kind::VoucherType, "Physical Stock",       "", ""},
  {Kind::VoucherType, "Purchase",             "", ""},
  {Kind::VoucherType, "Purchase Order",       "", ""},
  {Kind::VoucherType, "Receipt",              "", ""},
  {Kind::VoucherType, "Receipt Note",         "", ""},
  {Kind::VoucherType, "Rejections In",        "", ""},
  {Kind::VoucherType, "Rejections Out",       "", ""},
  {Kind::VoucherType, "Reversing Journal",    "", ""},
  {Kind::VoucherType, "Sales",                "", ""},
  {Kind::VoucherType, "Sales Order",          "", ""},
  {Kind::VoucherType, "Stock Journal",        "", ""},
}};
// clang-format on

const MasterKind& RowOf(Kind kind) { return kMasterKinds[static_cast<std::size_t>(kind)]; }

const MasterKind* FindKindByElement(std::string_view element) {
  for (const MasterKind& row : kMasterKinds)
    if (row.element == element) return &row;
  return nullptr;
}

const MasterKind* FindKindBySubtype(std::string_view subtype) {
  std::string word;
  for (const char c : FoldName(subtype))
    if (c != ' ') word += c;
  for (const MasterKind& row : kMasterKinds)
    if (word == FoldName(row.element) || word == FoldName(row.plural)) return &row;
  return nullptr;
}

}  // namespace vorlane::practice
