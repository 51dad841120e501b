#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "errors/reporter.h"
#include "form/import_form.h"
#include "gateway/tally_gateway.h"
#include "platform/settings/settings_store.h"
#include "platform/system/clock.h"
#include "staging/store.h"

namespace vorlane::bench {

/// An empty folder that goes with the object.
class BenchFolder {
 public:
  BenchFolder();
  ~BenchFolder();
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A face that shows nothing and keeps the first box: one means that something
/// went wrong, and then what was measured is not what was meant.
class NullFace : public form::Face {
 public:
  form::BoxAnswer ShowBox(const form::Box& box) override;
  std::optional<form::OptionsFields> ShowOptions(const form::OptionsFields&) override {
    return std::nullopt;
  }
  void PanelChanged(form::Panel, std::string_view) override {}
  void Progress(std::size_t, std::size_t) override {}
  void GridChanged() override {}
  void RowMarked(std::size_t gridRow) override {
    if (onRowMarked) onRowMarked(gridRow);
  }
  void FocusOn(form::Control) override {}
  void LetEventsRun() override {}
  void Close() override {}

  std::function<void(std::size_t gridRow)> onRowMarked;

  /// The text of the first box; empty when there was none.
  const std::string& FirstBox() const { return firstBox_; }

 private:
  std::string firstBox_;
};

/// The form with real services in a folder of its own, the options as their
/// dialog proposes them, and the gateway at a port of the loopback address.
class BenchForm {
 public:
  explicit BenchForm(std::uint16_t port = 9000);

  form::ImportForm& Form() { return form_; }
  NullFace& Face() { return face_; }
  /// Loads a table of a file as a user does who enters the path and picks the
  /// import type. Fails with std::runtime_error when a box came up or no rows.
  void Load(const std::string& path, const std::string& importType);
  /// Fails with std::runtime_error, naming its text, when a box was shown.
  void RequireNoBox() const;

 private:
  BenchFolder folder_;
  NullFace face_;
  platform::SystemClock clock_;
  platform::SettingsStore settings_;
  errors::Reporter reporter_;
  gateway::TallyGateway gateway_;
  staging::StagingStore store_;
  form::ImportForm form_;
};

}  // namespace vorlane::bench
