#include "posting/currency_forms.h"

#include "platform/runtime/number.h"

namespace vorlane::posting {

namespace {

/// What stands before the two amounts of a debit; a credit has nothing there.
struct DebitSigns {
  std::string_view beforeAmount;
  std::string_view beforeWorth;
};

constexpr DebitSigns SignsOf(CurrencyUse use) {
  switch (use) {
    case CurrencyUse::StockOrLedger:
      return {"- ", "-"};
    case CurrencyUse::Allocation:
      return {"-", "-"};
    case CurrencyUse::Bill:
      return {"-", "-"};
  }
  return {};
}

}  // namespace

std::string TimesExchangeRate(const VoucherRow& row, std::string_view amount) {
  return platform::NumberText(platform::Val(amount) * platform::Val(row.ExchangeRate));
}

std::string CurrencyAmount(const VoucherRow& row, std::string_view amount, bool isDebit,
                           CurrencyUse use) {
  const DebitSigns signs = isDebit ? SignsOf(use) : DebitSigns{};
  std::string text(signs.beforeAmount);
  text.append(row.VchCurrency).append(amount).append(" @ ").append(row.BaseCurrency);
  text.append(" ").append(row.ExchangeRate).append("/").append(row.VchCurrency).append(" = ");
  text.append(signs.beforeWorth).append(row.BaseCurrency).append(" ");
  return text + TimesExchangeRate(row, amount);
}

std::string CurrencyRate(const VoucherRow& row) {
  std::string text = row.VchCurrency + row.Rate + " = " + row.BaseCurrency + " ";
  return text + TimesExchangeRate(row, row.Rate) + "/" + row.Unit;
}

}  // namespace vorlane::posting
