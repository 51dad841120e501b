#include "practice/books.h"

#include <algorithm>
#include <utility>

#include "practice/names.h"

namespace vorlane::practice {
namespace {

// Empty for a voucher without a number.
std::string NumberWord(const Voucher& voucher) {
  if (voucher.number.empty()) return {};
  return FoldName(voucher.type) + '\n' + FoldName(voucher.number);
}

}  // namespace

int VoucherShelf::IdOf(const std::string& remoteId) const {
  const auto found = remoteId.empty() ? ids_.end() : ids_.find(remoteId);
  return found == ids_.end() ? 0 : found->second;
}

VoucherShelf::Stored VoucherShelf::Put(Voucher voucher) {
  const int known = IdOf(voucher.remoteId);
  if (known != 0) Forget(known);
  const int id = known != 0 ? known : lastId_ + 1;
  Restore(id, std::move(voucher));
  return {id, known == 0};
}

std::optional<int> VoucherShelf::Remove(const std::string& remoteId) {
  const int id = IdOf(remoteId);
  if (id == 0) return std::nullopt;
  Forget(id);
  return id;
}

void VoucherShelf::Restore(int id, Voucher voucher) {
  lastId_ = std::max(lastId_, id);
  if (!voucher.remoteId.empty()) ids_.emplace(voucher.remoteId, id);
  if (std::string word = NumberWord(voucher); !word.empty()) numbers_.emplace(std::move(word), id);
  vouchers_.emplace(id, std::move(voucher));
}

void VoucherShelf::Forget(int id) {
  const auto found = vouchers_.find(id);
  ids_.erase(found->second.remoteId);
  numbers_.erase({NumberWord(found->second), id});
  vouchers_.erase(found);
}

bool VoucherShelf::HasNumberOf(const Voucher& voucher) const {
  const std::string word = NumberWord(voucher);
  if (word.empty()) return false;
  const int own = IdOf(voucher.remoteId);
  auto place = numbers_.lower_bound({word, 0});
  if (place != numbers_.end() && *place == std::pair(word, own)) ++place;
  return place != numbers_.end() && place->first == word;
}

CompanyBooks::CompanyBooks(std::string name, Start start) : name_(std::move(name)) {
  if (start == Start::Bare) return;
  for (const PredefinedMaster& row : kPredefinedMasters)
    Put(row.kind, row.name,
        {std::string(row.name), std::string(row.alias), std::string(row.parent)});
}

const Master* CompanyBooks::Find(Kind kind, std::string_view name) const {
  const Shelf& shelf = ShelfOf(kind);
  const auto found = shelf.words.find(FoldName(name));
  return found == shelf.words.end() ? nullptr : &found->second->second;
}

void CompanyBooks::Put(Kind kind, std::string_view oldName, Master master) {
  Shelf& shelf = ShelfOf(kind);
  const auto found = shelf.words.find(FoldName(oldName));
  if (found == shelf.words.end()) {
    const int id = shelf.masters.empty() ? 1 : shelf.masters.rbegin()->first + 1;
    Restore(kind, id, std::move(master));
    changes_.masters.emplace_back(kind, id);
  } else {
    const Place place = found->second;
    ForgetWords(shelf, place);
    place->second = std::move(master);
    LearnWords(shelf, place);
    changes_.masters.emplace_back(kind, place->first);
  }
}

bool CompanyBooks::Remove(Kind kind, std::string_view name) {
  Shelf& shelf = ShelfOf(kind);
  const auto found = shelf.words.find(FoldName(name));
  if (found == shelf.words.end()) return false;
  const Place place = found->second;
  changes_.masters.emplace_back(kind, place->first);
  ForgetWords(shelf, place);
  shelf.masters.erase(place);
  return true;
}

void CompanyBooks::Restore(Kind kind, int id, Master master) {
  Shelf& shelf = ShelfOf(kind);
  LearnWords(shelf, shelf.masters.emplace(id, std::move(master)).first);
}

void CompanyBooks::LearnWords(Shelf& shelf, Place master) {
  for (const std::string& word : {master->second.name, master->second.alias})
    if (!word.empty()) shelf.words.emplace(FoldName(word), master);
}

void CompanyBooks::ForgetWords(Shelf& shelf, Place master) {
  for (const std::string& word : {master->second.name, master->second.alias}) {
    const auto found = shelf.words.find(FoldName(word));
    if (found != shelf.words.end() && found->second == master) shelf.words.erase(found);
  }
}

VoucherShelf::Stored CompanyBooks::PutVoucher(Voucher voucher) {
  const VoucherShelf::Stored stored = vouchers_.Put(std::move(voucher));
  changes_.vouchers.push_back(stored.id);
  return stored;
}

bool CompanyBooks::RemoveVoucher(const std::string& remoteId) {
  const std::optional<int> id = vouchers_.Remove(remoteId);
  if (id) changes_.vouchers.push_back(*id);
  return id.has_value();
}

Books::Books(const std::vector<std::string>& companies) {
  for (const std::string& name : companies) companies_.emplace_back(name);
}

CompanyBooks* Books::Find(std::string_view name) {
  for (CompanyBooks& company : companies_)
    if (SameName(company.Name(), name)) return &company;
  return nullptr;
}

void Books::Load(CompanyBooks company) {
  if (CompanyBooks* known = Find(company.Name())) {
    *known = std::move(company);
  } else {
    companies_.push_back(std::move(company));
  }
}

}  // namespace vorlane::practice
