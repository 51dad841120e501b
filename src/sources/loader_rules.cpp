#include "sources/loader_rules.h"

namespace vorlane::sources {

namespace {

constexpr std::string_view kAllDates[] = {"VchDate", "EffectiveDate", "AdjDate"};
constexpr std::string_view kOdbcDates[] = {"VchDate", "AdjDate"};
constexpr std::string_view kAllNumbers[] = {
    "Debit",      "Credit", "AdjAmount",      "Quantity",    "Rate",         "CostAmount",
    "BankAmount", "Amount", "OpeningBalance", "OpeningRate", "OpeningValue", "BatchQuantity"};
constexpr std::span<const std::string_view> kFirstNumbers{kAllNumbers, 8};
constexpr std::string_view kCopyNumbers[] = {"DEBIT",     "CREDIT",     "RATE",
                                             "ADJAMOUNT", "BANKAMOUNT", "COSTAMOUNT",
                                             "AMOUNT",    "QUANTITY",   "BATCHQUANTITY"};

}  // namespace

// clang-format off
//                                                      Excel           Access         ODBC
// location                                             F01-0011        F01-0012       F01-0013
// a custom format is ordered and filled down           no              yes            yes
// a VchNo of blanks is filled down                     yes             no             no
// dates                                                three           three          two and the first column
// numbers                                              twelve          eight          eight
// empty rows                                           left out        copied         copied
// numbers formatted again in the copy                  no              nine           no
// empty rows at the end                                two             one            one
// optional fields of a register's map                  read            left           left
const LoaderRules kExcelLoader {"F01-0011", kByExcel,  kOrderedExcel, true,  false, true,  kAllDates,  false, kAllNumbers,   false, {},           2, true};
const LoaderRules kAccessLoader{"F01-0012", kByAccess, kAsItStands,   false, true,  false, kAllDates,  false, kFirstNumbers, true,  kCopyNumbers, 1, false};
const LoaderRules kOdbcLoader  {"F01-0013", kByAccess, kAsItStands,   false, true,  false, kOdbcDates, true,  kFirstNumbers, true,  {},           1, false};
// clang-format on

}  // namespace vorlane::sources
