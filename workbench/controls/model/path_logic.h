// Paths as text, for the controls: see base/files/paths.h.
#pragma once

#include "base/files/paths.h"

namespace controls {

using base::ExtendedPath;
using base::ExtensionOf;
using base::IsAbsolutePath;
using base::IsRootPath;
using base::IsWithin;
using base::JoinPath;
using base::NameOfPath;
using base::NeedsExtendedPath;
using base::ParentOfPath;
using base::PathChain;
using base::PathInFolder;
using base::ReasonAgainstName;
using base::SamePath;
using base::ShellCanExpress;
using base::TidyTypedPath;

}  // namespace controls
