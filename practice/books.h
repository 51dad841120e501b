#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "practice/master_kinds.h"
#include "practice/rules.h"

namespace vorlane::practice {

struct Master {
  std::string name;
  std::string alias;                ///< empty: none
  std::string parent;               ///< as it was sent; empty: the root
  bool preventsDuplicates = false;  ///< of a voucher type: a number may stand but once
};

/// What the books keep of a voucher.
struct Voucher {
  std::string remoteId;  ///< empty: sent without one
  std::string type;      ///< the name of its master
  std::string number;
  std::string date;   ///< eight digits, the year first
  std::string party;  ///< the party ledger, or else the first ledger of its lists
  std::string amount;
};

/// What was put, altered or removed, by ids; an id may stand several times.
struct Changes {
  std::vector<std::pair<Kind, int>> masters;
  std::vector<int> vouchers;
};

/// The vouchers of one company.
class VoucherShelf {
 public:
  /// By their ids.
  const std::map<int, Voucher>& All() const { return vouchers_; }
  /// The highest id so far; no later voucher gets it again.
  int LastId() const { return lastId_; }

  struct Stored {
    int id;
    bool isNew;
  };
  /// Stores a voucher in place of the one with the same REMOTEID, whose id it
  /// takes over. One without a REMOTEID is always new and cannot be named again.
  Stored Put(Voucher voucher);
  /// The id that it had; nothing when there is none with that REMOTEID.
  std::optional<int> Remove(const std::string& remoteId);
  /// Puts back a voucher of before under its id. REQUIRES: neither its id nor its
  /// REMOTEID is on the shelf.
  void Restore(int id, Voucher voucher);
  void RestoreLastId(int id) { lastId_ = id; }

  /// Whether another voucher than the one with the REMOTEID of `voucher` has its
  /// number in its type. An empty number is none.
  bool HasNumberOf(const Voucher& voucher) const;

 private:
  // Type and number as they are compared, then the id. A set, and no multimap: a
  // voucher leaves it at once, however many share its number.
  using NumberIndex = std::set<std::pair<std::string, int>>;
  void Forget(int id);
  int IdOf(const std::string& remoteId) const;

  // As in books that are in use: an id of 1 would read like one more counter.
  int lastId_ = 100;
  std::map<int, Voucher> vouchers_;
  std::unordered_map<std::string, int> ids_;  // by REMOTEID
  NumberIndex numbers_;
};

/// The masters and vouchers of one company. Names and aliases of a kind are one set of words;
/// they match regardless of case and outer blanks.
class CompanyBooks {
 public:
  enum class Start {
    Predefined,  ///< with the masters that every new company has
    Bare,        ///< with none: they are restored
  };
  explicit CompanyBooks(std::string name, Start start = Start::Predefined);
  CompanyBooks(CompanyBooks&&) = default;
  CompanyBooks& operator=(CompanyBooks&&) = default;
  // A copy's words would lead to the masters of the original.
  CompanyBooks(const CompanyBooks&) = delete;
  CompanyBooks& operator=(const CompanyBooks&) = delete;

  const std::string& Name() const { return name_; }

  /// By name or alias; null when absent. A pointer lives until the master goes.
  const Master* Find(Kind kind, std::string_view name) const;
  /// By their ids, in the order in which they came.
  const std::map<int, Master>& Masters(Kind kind) const { return ShelfOf(kind).masters; }

  /// Stores a master in place of the one called `oldName`, or as a new one when
  /// there is none. A word that another master has already stays with that one.
  void Put(Kind kind, std::string_view oldName, Master master);
  /// False when there is none of that name.
  bool Remove(Kind kind, std::string_view name);
  /// Puts back a master of before. REQUIRES: its id is free.
  void Restore(Kind kind, int id, Master master);

  const VoucherShelf& Vouchers() const { return vouchers_; }
  VoucherShelf::Stored PutVoucher(Voucher voucher);
  /// False when there is none with that REMOTEID.
  bool RemoveVoucher(const std::string& remoteId);
  void RestoreVoucher(int id, Voucher voucher) { vouchers_.Restore(id, std::move(voucher)); }
  void RestoreLastVoucherId(int id) { vouchers_.RestoreLastId(id); }

  /// What changed since the last call, restored things aside.
  Changes TakeChanges() { return std::exchange(changes_, {}); }

 private:
  using Place = std::map<int, Master>::iterator;
  struct Shelf {
    std::map<int, Master> masters;
    std::unordered_map<std::string, Place> words;
  };
  const Shelf& ShelfOf(Kind kind) const { return shelves_[static_cast<std::size_t>(kind)]; }
  Shelf& ShelfOf(Kind kind) { return shelves_[static_cast<std::size_t>(kind)]; }
  static void LearnWords(Shelf& shelf, Place master);
  static void ForgetWords(Shelf& shelf, Place master);

  std::string name_;
  std::array<Shelf, kKindCount> shelves_;
  VoucherShelf vouchers_;
  Changes changes_;
};

/// The companies that are loaded.
class Books {
 public:
  /// None at all is a product that runs with no company open.
  explicit Books(const std::vector<std::string>& companies);

  const std::vector<CompanyBooks>& Companies() const { return companies_; }
  /// Null when no such company is loaded.
  CompanyBooks* Find(std::string_view name);
  /// The company on the screen, the first one; null when none is loaded.
  CompanyBooks* Current() { return companies_.empty() ? nullptr : &companies_.front(); }

  /// Takes the place of the company of that name, or stands behind all others.
  void Load(CompanyBooks company);

  const Rules& CurrentRules() const { return rules_; }
  void SetRules(Rules rules) { rules_ = std::move(rules); }

 private:
  std::vector<CompanyBooks> companies_;
  Rules rules_;
};

}  // namespace vorlane::practice
