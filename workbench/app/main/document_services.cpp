#include "workbench/app/main/document_services.h"

#include "workbench/app/documents/autoload.h"

namespace workbench {

DocumentServices StandardDocumentServices() {
  return {&OpenDocumentView, &ReadAutoloadFile, &ShowAboutDialog};
}

}  // namespace workbench
