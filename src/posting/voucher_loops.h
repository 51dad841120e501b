#pragma once

#include "form/declared_column.h"
#include "form/import_form.h"

namespace vorlane::posting {

/// The import loops of the voucher families; each runs the whole grid. See
/// VoucherRun for what they share and each family's file for what it adds.

void PostBankStmt(form::ImportForm& importForm);
/// With `chkChkMst` ticked, asks Tally for every ledger first and posts nothing
/// when one is missing.
void PostCostTransaction(form::ImportForm& importForm);
void PostQuickTransaction(form::ImportForm& importForm);
void PostServTaxTransaction(form::ImportForm& importForm);
void PostSTTDSTransaction(form::ImportForm& importForm);
void PostTDSTransaction(form::ImportForm& importForm);
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

/// What each of them reads of a row.

form::DeclaredColumns BankStmtColumns();
form::DeclaredColumns CostTransactionColumns();
form::DeclaredColumns QuickTransactionColumns();
form::DeclaredColumns ServTaxTransactionColumns();
form::DeclaredColumns STTDSTransactionColumns();
form::DeclaredColumns TDSTransactionColumns();
form::DeclaredColumns TransactionColumns();
form::DeclaredColumns VATTransactionColumns();
form::DeclaredColumns VATTransactionMCColumns();
form::DeclaredColumns ItemizedTransactionColumns();
form::DeclaredColumns OrdersColumns();
form::DeclaredColumns NotesColumns();
form::DeclaredColumns StockJVColumns();
form::DeclaredColumns PhysicalStockColumns();
form::DeclaredColumns CrDrNotesColumns();
form::DeclaredColumns AttendanceColumns();
form::DeclaredColumns VoucherRegisterColumns();

}  // namespace vorlane::posting
