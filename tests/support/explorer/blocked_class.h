// A COM class that cannot be made, for the time that the object exists.
#pragma once

#include <windows.h>

#include <objbase.h>

namespace test_support {

class BlockedClass {
 public:
  // From now on CoCreateInstance of the class fails in this process, whatever is registered for it.
  explicit BlockedClass(REFCLSID classId);
  ~BlockedClass();
  BlockedClass(const BlockedClass&) = delete;
  BlockedClass& operator=(const BlockedClass&) = delete;

  int attempts() const;

 private:
  IClassFactory* factory_;
  DWORD cookie_ = 0;
};

// Class ids of the three shell controls.
extern const CLSID kFileViewClassId;
extern const CLSID kFolderViewClassId;
extern const CLSID kComboViewClassId;

}  // namespace test_support
