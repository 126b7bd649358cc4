#include "base/files/wine_open_files.h"

#include <algorithm>

#include "base/files/wine_calls.h"

namespace base::wine {
namespace {

constexpr int kCallsBetweenLooks = 100;

bool IsNumber(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

void OpenFiles::FindServers() {
  servers_.clear();
  std::vector<std::string> processes;
  if (ListFolder("/proc", &processes) < 0) return;
  for (const std::string& process : processes) {
    std::string name;
    if (!IsNumber(process) || ReadWholeFile("/proc/" + process + "/comm", &name) < 0) continue;
    if (name.starts_with("wineserver")) servers_.push_back("/proc/" + process + "/fd/");
  }
}

void OpenFiles::Look() {
  if (servers_.empty()) FindServers();
  open_.clear();
  known_ = !servers_.empty();
  for (const std::string& server : servers_) {
    std::vector<std::string> files;
    if (ListFolder(server, &files) < 0) {
      known_ = false;  // it belongs to somebody else, or has ended
      servers_.clear();
      break;
    }
    for (const std::string& file : files) {
      Status status;
      if (GetStatus(server + file, true, &status) < 0 || !status.IsFile()) continue;
      open_.insert({status.device, status.inode});
    }
  }
  callsLeft_ = kCallsBetweenLooks;
}

bool OpenFiles::MayContain(const FileIdentity& file) {
  if (callsLeft_-- <= 0) Look();
  return !known_ || open_.contains(file);
}

}  // namespace base::wine
