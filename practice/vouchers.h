#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "practice/books.h"

namespace vorlane::practice {

/// The eight digits, the year first, of a date as the product reads it: 20240401,
/// 01-04-2024 and 1-Apr-2024, and no time behind them. Nothing for all others.
std::optional<std::string> ReadTallyDate(const std::string& date);

struct CheckedVoucher {
  /// The lines that refuse the voucher, each once: masters that it names in vain, a
  /// date that is missing, none or outside of the period, a number that may stand but
  /// once, and, when that is all in order, unequal sides.
  std::vector<std::string> faults;
  /// There is a fault, too, of which the rules let the answer say nothing.
  bool isRefusedSilently = false;
  Voucher voucher;  ///< for the books; of use without faults alone
};

CheckedVoucher CheckVoucher(const platform::XmlNode& voucher, const CompanyBooks& company,
                            const Rules& rules);

}  // namespace vorlane::practice
