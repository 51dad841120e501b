#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gateway/document_builder.h"
#include "staging/store.h"
#include "vouchers/voucher_document.h"

namespace vorlane::vouchers {

/// One walk over the tables of one voucher. Private to the document writer.
class VoucherWalk {
 public:
  VoucherWalk(VoucherDocumentWriter& writer, gateway::DocumentBuilder& builder,
              std::string_view companyName, std::string_view vchID)
      : writer_(writer), builder_(builder), companyName_(companyName), vchID_(vchID) {}

  void WriteVoucher(platform::XmlNode* voucher, std::string_view action);

 private:
  using ListRead = VoucherDocumentWriter::ListRead;
  using Lists = std::vector<ListRead>;

  void WriteHead(platform::XmlNode* voucher, std::string_view action);
  /// Writes lists one after the other. `parent` moves on where a list makes its
  /// elements the parents of what follows.
  void WriteLists(const Lists& lists, std::string_view parentId, platform::XmlNode*& parent);
  /// Whether the voucher has a row of the list at all. Most entries have rows in
  /// none of the lists that may hang below them, and asking once is cheaper.
  bool HasRows(const ListRead& read);
  void WriteList(const ListRead& read, std::string_view parentId, platform::XmlNode*& parent);
  platform::XmlNode* ElementOf(const VoucherList& list, platform::XmlNode*& parent,
                               platform::XmlNode* shared, std::string_view category);
  void WriteTags(const VoucherList& list, platform::XmlNode* element, const staging::Statement& row,
                 std::size_t column);
  void WriteTag(const VoucherTag& tag, platform::XmlNode* element, const staging::Statement& row,
                std::size_t column);
  platform::XmlNode* CategoryElement(platform::XmlNode* parent, std::string_view category);
  void RememberLatest(const VoucherList& list, platform::XmlNode* element);

  VoucherDocumentWriter& writer_;
  gateway::DocumentBuilder& builder_;
  std::string_view companyName_;
  std::string_view vchID_;

  std::vector<std::pair<const ListRead*, bool>> hasRows_;
  std::string guid_;  // of the voucher, for the names of bank entries

  // The category under which cost centres are written. The element outlives its
  // ledger entry: a first cost centre without a category falls into it.
  std::string category_;
  platform::XmlNode* categoryElement_ = nullptr;

  // Where a stock line's description hangs, best first.
  platform::XmlNode* lastLedgerEntry_ = nullptr;
  platform::XmlNode* lastOrderRef_ = nullptr;
  platform::XmlNode* lastDelNote_ = nullptr;
};

}  // namespace vorlane::vouchers
