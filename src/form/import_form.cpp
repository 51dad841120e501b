#include "form/import_form.h"

namespace vorlane::form {

void ImportForm::stat(std::string_view panel, std::string_view text) {
  Trap("F01-0040", [&] {
    const bool isMsg = panel == "msg";
    std::string& shown = isMsg ? panelMsg : panelStat;
    shown.assign(text);
    if (!text.empty()) shown += ".........";
    services.face.PanelChanged(isMsg ? Panel::Msg : Panel::Stat, shown);
  });
}

void ImportForm::ShowRow(std::size_t row) {
  GR1.SelectRow(row);
  services.face.RowMarked(row);
  services.face.LetEventsRun();
}

}  // namespace vorlane::form
