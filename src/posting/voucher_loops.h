#pragma once

#include "form/import_form.h"

namespace vorlane::posting {

/// The import loops of the voucher families; each runs the whole grid. See
/// VoucherRun for what they share and each family's file for what it adds.

void PostTransaction(form::ImportForm& importForm);
void PostVATTransaction(form::ImportForm& importForm);
void PostVATTransactionMC(form::ImportForm& importForm);
void PostItemizedTransaction(form::ImportForm& importForm);
void PostOrders(form::ImportForm& importForm);
void PostNotes(form::ImportForm& importForm);
void PostStockJV(form::ImportForm& importForm);
void PostPhysicalStock(form::ImportForm& importForm);
void PostCrDrNotes(form::ImportForm& importForm);
void PostAttendance(form::ImportForm& importForm);
void PostVoucherRegister(form::ImportForm& importForm);

}  // namespace vorlane::posting
