#include "workbench/app/documents/document_view.h"

#include <string_view>
#include <utility>

#include "workbench/app/documents/content_kind.h"
#include "workbench/app/documents/file_facts.h"
#include "workbench/app/documents/information_view.h"
#include "workbench/app/documents/picture_view.h"
#include "workbench/app/documents/text_decoding.h"
#include "workbench/app/documents/text_view.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

std::unique_ptr<DocumentView> Refuse(const std::wstring& path, DWORD code, std::wstring* error) {
  if (error != nullptr) *error = L"\"" + path + L"\" can't be opened. " + ErrorText(code, path);
  return nullptr;
}

std::unique_ptr<DocumentView> OpenFileView(HWND parent, const FileFacts& facts, std::wstring* error) {
  std::string beginning;
  const DWORD code = ReadFileBeginning(facts.path, kSniffSize, &beginning);
  if (code != ERROR_SUCCESS) return Refuse(facts.path, code, error);
  const std::string name = Utf8(facts.name);
  std::wstring note;
  const bool pictureName = IsPictureName(name);
  if (pictureName || IsPictureContent(beginning)) {
    auto picture = LoadPicture(facts.path, &note);
    if (picture) return CreatePictureView(parent, facts, std::move(*picture));
  }
  // What only begins like a picture may still be a text; what is named like one is a picture that can't be
  // shown.
  if (!pictureName && IsTextFile(name, beginning)) {
    std::string content;
    const DWORD read = ReadFileBeginning(facts.path, kTextSizeLimit, &content);
    if (read != ERROR_SUCCESS) return Refuse(facts.path, read, error);
    return CreateTextView(parent, facts, content, facts.size > content.size());
  }
  // What is not named like a picture is not called a damaged one.
  return CreateInformationView(parent, facts, pictureName ? note : std::wstring());
}

}  // namespace

std::unique_ptr<DocumentView> OpenDocumentView(HWND parent, const std::wstring& path, std::wstring* error) {
  try {
    FileFacts facts;
    const DWORD code = ReadFileFacts(path, &facts);
    if (code != ERROR_SUCCESS) return Refuse(path, code, error);
    auto view = facts.folder ? CreateInformationView(parent, facts, {}) : OpenFileView(parent, facts, error);
    if (view == nullptr && error != nullptr && error->empty()) {
      *error = L"No window could be made for \"" + path + L"\".";
    }
    return view;
  } catch (const std::bad_alloc&) {
    return Refuse(path, ERROR_NOT_ENOUGH_MEMORY, error);
  }
}

}  // namespace workbench
