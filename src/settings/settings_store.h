// Reads and writes ExplorerSettings in the host's profile file, section "Explore"; the home directory is kept in a shell
// link file of the host's per-user directory. Nothing is shown and nothing is thrown on a failure: missing values are
// their defaults, and what could not be written stays as it was.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "src/settings/explorer_settings.h"

namespace file_explorer {

class SettingsStore {
 public:
  // profilePath is asked afresh for every single access to the profile; it may give an empty path (no profile).
  // hostWindow gives the host's main window.
  SettingsStore(std::function<std::string()> profilePath, std::function<HWND()> hostWindow);

  // Fills every field.
  void Load(ExplorerSettings* settings) const;
  // Writes every field: the whole numbers each on its own, then one chain (colours, display name, link, lists) that
  // ends with the first write that fails.
  void Save(const ExplorerSettings& settings) const;

  // A number and a text of the section, for options that others keep here.
  unsigned ReadNumber(const char* key, int defaultValue) const;
  bool WriteNumber(const char* key, int value) const;

 private:
  std::string ReadText(const char* key) const;
  bool WriteText(const char* key, const std::string& text) const;
  bool SaveColors(const ExplorerSettings& settings) const;

  std::function<std::string()> profilePath_;
  std::function<HWND()> hostWindow_;
};

// Puts the options to their power-up defaults: those of the options dialog's Reset and the host's own colours. Texts,
// home directory and filtering method stay; nothing is saved.
void ResetToPowerUpDefaults(ExplorerSettings* settings);

// Makes settings->homeDirectoryName the parsing form of settings->homeDirectory's name, or none.
void RefreshHomeDirectoryName(ExplorerSettings* settings);

}  // namespace file_explorer
