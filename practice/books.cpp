#include "practice/books.h"

#include <utility>

#include "practice/names.h"

namespace vorlane::practice {

VoucherShelf::Stored VoucherShelf::Put(Voucher voucher) {
  const auto found = voucher.remoteId.empty() ? ids_.end() : ids_.find(voucher.remoteId);
  const bool isNew = found == ids_.end();
  const int id = isNew ? ++lastId_ : found->second;
  if (isNew && !voucher.remoteId.empty()) ids_.emplace(voucher.remoteId, id);
  vouchers_.insert_or_assign(id, std::move(voucher));
  return {id, isNew};
}

bool VoucherShelf::Remove(const std::string& remoteId) {
  const auto found = ids_.find(remoteId);
  if (found == ids_.end()) return false;
  vouchers_.erase(found->second);
  ids_.erase(found);
  return true;
}

CompanyBooks::CompanyBooks(std::string name) : name_(std::move(name)) {
  for (const PredefinedMaster& row : kPredefinedMasters)
    Put(row.kind, row.name,
        {std::string(row.name), std::string(row.alias), std::string(row.parent)});
}

const Master* CompanyBooks::Find(Kind kind, std::string_view name) const {
  const Shelf& shelf = ShelfOf(kind);
  const auto found = shelf.words.find(FoldName(name));
  return found == shelf.words.end() ? nullptr : &*found->second;
}

void CompanyBooks::Put(Kind kind, std::string_view oldName, Master master) {
  Shelf& shelf = ShelfOf(kind);
  const auto found = shelf.words.find(FoldName(oldName));
  auto place = shelf.masters.end();
  if (found == shelf.words.end()) {
    place = shelf.masters.insert(shelf.masters.end(), std::move(master));
  } else {
    place = found->second;
    ForgetWords(shelf, place);
    *place = std::move(master);
  }
  shelf.words.emplace(FoldName(place->name), place);
  if (!place->alias.empty()) shelf.words.emplace(FoldName(place->alias), place);
}

bool CompanyBooks::Remove(Kind kind, std::string_view name) {
  Shelf& shelf = ShelfOf(kind);
  const auto found = shelf.words.find(FoldName(name));
  if (found == shelf.words.end()) return false;
  const auto place = found->second;
  ForgetWords(shelf, place);
  shelf.masters.erase(place);
  return true;
}

void CompanyBooks::ForgetWords(Shelf& shelf, std::list<Master>::iterator master) {
  for (const std::string& word : {FoldName(master->name), FoldName(master->alias)}) {
    const auto found = shelf.words.find(word);
    if (found != shelf.words.end() && found->second == master) shelf.words.erase(found);
  }
}

Books::Books(const std::vector<std::string>& companies) {
  for (const std::string& name : companies) companies_.emplace_back(name);
}

CompanyBooks* Books::Find(std::string_view name) {
  for (CompanyBooks& company : companies_)
    if (SameName(company.Name(), name)) return &company;
  return nullptr;
}

}  // namespace vorlane::practice
