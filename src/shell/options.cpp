#include "shell/options.h"

#include "shell/refresh.h"

namespace vorlane::shell {

using form::ImportForm;
using form::OptionsFields;

namespace {

struct DialogField {
  std::string_view key;
  std::string OptionsFields::*field;
  std::string_view whenEmpty;
};

constexpr DialogField kDialogFields[] = {
    {kServerAddress, &OptionsFields::txtServer, "127.0.0.1"},
    {kPortNo, &OptionsFields::txtPort, "9000"},
    {kDateFormat, &OptionsFields::txtDateFormat, "dd-MMM-yyyy"},
    {kDecimalPlaces, &OptionsFields::txtDecPlaces, "#################0.000"},
};

}  // namespace

std::string ReadSetting(const ImportForm& importForm, std::string_view key) {
  return importForm.services.settings.Read(kConfigSection, key);
}

OptionsFields OptionsAsShown(const ImportForm& importForm) {
  OptionsFields fields;
  for (const DialogField& row : kDialogFields) {
    std::string& text = fields.*row.field;
    text = ReadSetting(importForm, row.key);
    if (text.empty()) text = row.whenEmpty;  // a value of blanks stays
  }
  fields.chkOldTally = ReadSetting(importForm, kUseOldTally) == "Yes";
  return fields;
}

void ConfirmOptions(ImportForm& importForm, const OptionsFields& fields) {
  platform::SettingsStore& settings = importForm.services.settings;
  for (const DialogField& row : kDialogFields) {
    settings.Write(kConfigSection, row.key, fields.*row.field);
  }
  settings.Write(kConfigSection, kUseOldTally, fields.chkOldTally ? "Yes" : "No");
}

void ShowOptionsDialog(ImportForm& importForm) {
  const auto given = importForm.services.face.ShowOptions(OptionsAsShown(importForm));
  if (given) ConfirmOptions(importForm, *given);
}

namespace {
template <class Dialog>
void OptionsThenRefresh(ImportForm& importForm, Dialog&& dialog) {
  importForm.Trap("F01-0036", [&] {
    dialog();
    Refresh(importForm);
  });
}
}  // namespace

void mnuOptions(ImportForm& importForm) {
  OptionsThenRefresh(importForm, [&] { ShowOptionsDialog(importForm); });
}

void mnuOptions(ImportForm& importForm, const OptionsFields& answered) {
  OptionsThenRefresh(importForm, [&] { ConfirmOptions(importForm, answered); });
}

void ReadFormats(ImportForm& importForm) {
  importForm.DateFormat = ReadSetting(importForm, kDateFormat);
  importForm.AmountFormat = ReadSetting(importForm, kDecimalPlaces);
}

}  // namespace vorlane::shell
