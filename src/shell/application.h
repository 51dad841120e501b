#pragma once

#include <filesystem>

#include "errors/reporter.h"
#include "form/import_form.h"
#include "gateway/tally_gateway.h"
#include "platform/settings/settings_store.h"
#include "platform/system/clock.h"
#include "staging/store.h"

namespace vorlane::shell {

/// Builds the form and what it works with, for any face. The face outlives it.
class Application {
 public:
  explicit Application(form::Face& face);

  form::ImportForm& Form() { return form_; }

 private:
  platform::SystemClock clock_;
  platform::SettingsStore settings_;
  std::filesystem::path applicationFolder_;
  errors::Reporter reporter_;
  gateway::TallyGateway gateway_;
  staging::StagingStore store_;
  form::ImportForm form_;
};

}  // namespace vorlane::shell
