#pragma once

#include <string>
#include <string_view>

#include "posting/voucher_row.h"

namespace vorlane::posting {

/// What an amount in a second currency is written for. The uses differ in the
/// blank behind the first "-" of a debit and in the one before the rate; each is
/// as Tally has always been given it.
enum class CurrencyUse { StockOrLedger, Allocation, Bill, Register };

/// An amount in the voucher's currency with its rate and its worth in the base
/// currency, such as "$100.000 @ Rs 80.000/$ = Rs 8000". The worth is not
/// rounded.
std::string CurrencyAmount(const VoucherRow& row, std::string_view amount, bool isDebit,
                           CurrencyUse use);

/// RATE in both currencies, per UNIT.
std::string CurrencyRate(const VoucherRow& row);

/// An amount text times the exchange rate, in the plain number form.
std::string TimesExchangeRate(const VoucherRow& row, std::string_view amount);

}  // namespace vorlane::posting
