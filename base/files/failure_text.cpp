#include <map>

#include "base/files/transfer.h"

namespace base {
namespace {

const std::map<FailureReason, const wchar_t*>& Texts() {
  static const std::map<FailureReason, const wchar_t*> texts = {
      {FailureReason::kIntoItself, L"A folder cannot be copied or moved into itself."},
      {FailureReason::kMountPoint,
       L"Another drive shows in this folder. It can be neither copied nor moved; open it and take its "
       L"contents."},
      {FailureReason::kSpecialFile, L"It is a pipe, a socket or a device, which cannot be copied."},
      {FailureReason::kLinkNotMade, L"The link could not be made there."},
      {FailureReason::kAttributesLost, L"The folder is there, but its date and attributes could not be set."},
      {FailureReason::kSizeDiffers, L"The copy was not complete."},
      {FailureReason::kSourceChanged, L"Somebody changed it meanwhile, so it was left as it is."},
      {FailureReason::kFolderInTheWay,
       L"There is a folder or a link of this name, which a file cannot replace."},
      {FailureReason::kFileInTheWay, L"There is a file of this name, which a folder cannot replace."},
      {FailureReason::kKept, L"The folder was kept because something is still in it."},
      {FailureReason::kNoFolder, L"The folder is no longer there."},
      {FailureReason::kChangedSince, L"It has changed since, so it was left as it is."},
      {FailureReason::kPlaceTaken, L"Something else stands at its old place."},
      {FailureReason::kWasReplaced, L"The file that was replaced here cannot be brought back."},
  };
  return texts;
}

// The codes for which the usual texts say too little.
const wchar_t* OwnText(SystemError error) {
  switch (error) {
    case kFileNotFound:
    case kPathNotFound:
      return L"It is no longer there.";
    case kSharingViolation:
      return L"It is in use by another program.";
    case kDiskFull:
      return L"There is not enough space on the disk.";
    default:
      return nullptr;
  }
}

}  // namespace

std::wstring TextOfFailure(const TransferFailure& failure,
                           const std::function<std::wstring(SystemError error)>& systemText) {
  const wchar_t* own = OwnText(failure.error);
  const std::wstring system = failure.error == kNoError ? L""
                              : own                     ? std::wstring(own)
                                                        : systemText(failure.error);
  if (failure.reason == FailureReason::kSystem) return system;
  const std::wstring reason = Texts().at(failure.reason);
  const bool explains =
      failure.reason == FailureReason::kLinkNotMade || failure.reason == FailureReason::kAttributesLost;
  return explains && !system.empty() ? reason + L" " + system : reason;
}

}  // namespace base
