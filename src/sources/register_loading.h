#pragma once

#include "form/declared_column.h"
#include "form/import_form.h"
#include "platform/data/recordset.h"
#include "sources/load.h"

namespace vorlane::sources {

/// The register route of the row loaders: reads the register and its map, a table
/// named as the register with "Map" behind it, checks both, and leaves in the tag
/// of each mapped grid column what the map says of it. The cells stay as the
/// source gave them: nothing is filled down or formatted. Failures rise.
void LoadRegisterRows(form::ImportForm& importForm, const Load& load);

/// The text of a column's tag, each place with "|" behind it: the name in upper
/// case, ledger, sign, order, and with `takesOptional` the optional fields that
/// the map has. A field that the map lacks leaves no place, so those behind it
/// move up.
std::string RegisterTag(const platform::Recordset& map, bool takesOptional);

/// The fields of a register's map, as it spells them.
form::DeclaredColumns MapColumns();

}  // namespace vorlane::sources
