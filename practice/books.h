#pragma once

#include <array>
#include <cstddef>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "practice/master_kinds.h"

namespace vorlane::practice {

struct Master {
  std::string name;
  std::string alias;   ///< empty: none
  std::string parent;  ///< as it was sent; empty: the root
};

/// What the books keep of a voucher.
struct Voucher {
  std::string remoteId;  ///< empty: sent without one
  std::string type;
  std::string number;
  std::string date;   ///< eight digits, the year first
  std::string party;  ///< the party ledger, or else the first ledger of its lists
  std::string amount;
};

/// The vouchers of one company.
class VoucherShelf {
 public:
  /// By their ids.
  const std::map<int, Voucher>& All() const { return vouchers_; }

  struct Stored {
    int id;
    bool isNew;
  };
  /// Stores a voucher in place of the one with the same REMOTEID, whose id it
  /// takes over. One without a REMOTEID is always new and cannot be named again.
  Stored Put(Voucher voucher);
  /// False when there is none with that REMOTEID.
  bool Remove(const std::string& remoteId);

 private:
  // As in books that are in use: an id of 1 would read like one more counter.
  int lastId_ = 100;
  std::map<int, Voucher> vouchers_;
  std::unordered_map<std::string, int> ids_;  // by REMOTEID
};

/// The masters and vouchers of one company. Names and aliases of a kind are one set of words;
/// they match regardless of case and outer blanks.
class CompanyBooks {
 public:
  /// Opens the books with the predefined masters.
  explicit CompanyBooks(std::string name);
  CompanyBooks(CompanyBooks&&) = default;
  CompanyBooks& operator=(CompanyBooks&&) = default;
  // A copy's words would lead to the masters of the original.
  CompanyBooks(const CompanyBooks&) = delete;
  CompanyBooks& operator=(const CompanyBooks&) = delete;

  const std::string& Name() const { return name_; }

  /// By name or alias; null when absent. A pointer lives until the master goes.
  const Master* Find(Kind kind, std::string_view name) const;
  const std::list<Master>& Masters(Kind kind) const { return ShelfOf(kind).masters; }

  /// Stores a master in place of the one called `oldName`, or as a new one when
  /// there is none. A word that another master has already stays with that one.
  void Put(Kind kind, std::string_view oldName, Master master);
  /// False when there is none of that name.
  bool Remove(Kind kind, std::string_view name);

  VoucherShelf& Vouchers() { return vouchers_; }
  const VoucherShelf& Vouchers() const { return vouchers_; }

 private:
  struct Shelf {
    std::list<Master> masters;
    std::unordered_map<std::string, std::list<Master>::iterator> words;
  };
  const Shelf& ShelfOf(Kind kind) const { return shelves_[static_cast<std::size_t>(kind)]; }
  Shelf& ShelfOf(Kind kind) { return shelves_[static_cast<std::size_t>(kind)]; }
  static void ForgetWords(Shelf& shelf, std::list<Master>::iterator master);

  std::string name_;
  std::array<Shelf, kKindCount> shelves_;
  VoucherShelf vouchers_;
};

/// The companies that are loaded; they last as long as the program runs.
class Books {
 public:
  /// None at all is a product that runs with no company open.
  explicit Books(const std::vector<std::string>& companies);

  const std::vector<CompanyBooks>& Companies() const { return companies_; }
  /// Null when no such company is loaded.
  CompanyBooks* Find(std::string_view name);
  /// The company on the screen, the first one; null when none is loaded.
  CompanyBooks* Current() { return companies_.empty() ? nullptr : &companies_.front(); }

 private:
  std::vector<CompanyBooks> companies_;
};

}  // namespace vorlane::practice
