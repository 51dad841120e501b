#pragma once

#include "form/import_form.h"

namespace vorlane::posting {

/// The import loops of the voucher families; each runs the whole grid. See
/// VoucherRun for what they share and each family's file for what it adds.

void PostTransaction(form::ImportForm& importForm);

}  // namespace vorlane::posting
