#include "shell/application.h"

#include "platform/system/application_folder.h"
#include "platform/system/computer_name.h"

namespace vorlane::shell {

namespace {

constexpr std::string_view kStoreFileName = "Vorlane20.DAT";

errors::Reporter::ShowBox ErrorBoxOn(form::Face& face) {
  return [&face](const std::string& text, const std::string& title) {
    face.ShowBox({text, title, form::BoxIcon::Critical});
  };
}

platform::HttpLimits LimitsFor(form::Face& face) {
  platform::HttpLimits limits;
  limits.whileWaiting = [&face] { face.StayPainted(); };
  return limits;
}

}  // namespace

Application::Application(form::Face& face)
    : settings_(platform::SettingsFilePath()),
      applicationFolder_(platform::ApplicationFolder(platform::ProgramFolder())),
      reporter_(clock_, platform::ComputerName(), applicationFolder_, ErrorBoxOn(face)),
      gateway_(settings_, reporter_, LimitsFor(face)),
      store_(applicationFolder_ / kStoreFileName),
      form_({settings_, clock_, gateway_, store_, reporter_, face, applicationFolder_}) {}

}  // namespace vorlane::shell
