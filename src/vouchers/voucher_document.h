#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/tally_gateway.h"
#include "staging/store.h"
#include "vouchers/voucher_lists.h"

namespace vorlane::vouchers {

/// Reads staged vouchers back, writes each as one document and sends it. Holds
/// the statements of its tables, so one serves a whole run.
///
/// Values pass as they stand from the staging columns to the tags: all knowledge
/// of what a voucher needs lies in what the loop staged, and all knowledge of the
/// document in the tables of voucher_lists.cpp.
class VoucherDocumentWriter {
 public:
  VoucherDocumentWriter(staging::StagingStore& store, gateway::TallyGateway& tally);

  /// Sends the staged voucher `vchID` of the company; `action` is "Create". Gives
  /// Tally's digest. A failure is reported and gives an empty text: before the
  /// exchange it means that nothing was sent. May be called again for the same
  /// voucher, which is then sent again.
  /// `beforeSending` is called once the voucher is read, or was not to be read.
  std::string WriteVoucherDocument(std::string_view companyName, std::string_view vchID,
                                   std::string_view action,
                                   const std::function<void()>& beforeSending = {});

  /// The document without sending it. Failures rise.
  platform::XmlDocument BuildDocument(std::string_view companyName, std::string_view vchID,
                                      std::string_view action);

 private:
  friend class VoucherWalk;

  /// A list with the statement that reads its rows: the row's id first, then the
  /// columns of the tags in their order.
  struct ListRead {
    const VoucherList* list;
    std::string sql;
    std::string probeSql;  ///< of a nested list: any row of the voucher, whatever its parent
    std::vector<ListRead> nested;
  };
  static ListRead PrepareList(const VoucherList& list);
  static std::vector<ListRead> PrepareLists(std::span<const VoucherList* const> lists);

  staging::StagingStore& store_;
  gateway::TallyGateway& tally_;
  std::string headSql_;
  std::vector<ListRead> beforeHead_;
  std::vector<ListRead> afterHead_;
};

}  // namespace vorlane::vouchers
