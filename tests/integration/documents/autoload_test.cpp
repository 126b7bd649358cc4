#include "workbench/app/documents/autoload.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace workbench {
namespace {

// Points GetTempPath at a folder of its own for a test.
}  // namespace
}  // namespace workbench
