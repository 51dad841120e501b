#include "posting/currency_forms.h"

#include "platform/runtime/number.h"

namespace vorlane::posting {

namespace {

/// What stands before the two amounts of a debit, where a credit has nothing, and
/// what between the base currency and the rate.
struct CurrencyForm {
  std::string_view beforeAmount;
  std::string_view beforeWorth;
  std::string_view beforeRate;
};

constexpr CurrencyForm FormOf(CurrencyUse use) {
  switch (use) {
    case CurrencyUse::StockOrLedger:
      return {"- ", "-", " "};
    case CurrencyUse::Allocation:
      return {"-", "-", " "};
    case CurrencyUse::Bill:
      return {"-", "-", " "};
    case CurrencyUse::Register:
      return {"- ", "-", ""};
  }
  return {};
}

}  // namespace

std::string TimesExchangeRate(const VoucherRow& row, std::string_view amount) {
  return platform::NumberText(platform::Val(amount) * platform::Val(row.ExchangeRate));
}

std::string CurrencyAmount(const VoucherRow& row, std::string_view amount, bool isDebit,
                           CurrencyUse use) {
  const CurrencyForm form = FormOf(use);
  std::string text(isDebit ? form.beforeAmount : "");
  text.append(row.VchCurrency).append(amount).append(" @ ").append(row.BaseCurrency);
  text.append(form.beforeRate).append(row.ExchangeRate).append("/").append(row.VchCurrency);
  text.append(" = ").append(isDebit ? form.beforeWorth : "").append(row.BaseCurrency).append(" ");
  return text + TimesExchangeRate(row, amount);
}

std::string CurrencyRate(const VoucherRow& row) {
  std::string text = row.VchCurrency + row.Rate + " = " + row.BaseCurrency + " ";
  return text + TimesExchangeRate(row, row.Rate) + "/" + row.Unit;
}

}  // namespace vorlane::posting
