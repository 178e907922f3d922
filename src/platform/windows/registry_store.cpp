#include "platform/windows/registry_store.h"

#include "platform/windows/failure_text.h"
#include "platform/windows/handles.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

constexpr DWORD kUnitBytes = sizeof(wchar_t);

/// The text of a value; nothing when it is absent or no string. `named` is for the failure's text.
std::optional<std::wstring> valueOf(HKEY key, const std::wstring& name, const std::string& named) {
  std::wstring text(256, L'\0');
  for (;;) {
    DWORD type = REG_NONE, bytes = static_cast<DWORD>(text.size()) * kUnitBytes;
    const LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &type,
                                            reinterpret_cast<BYTE*>(text.data()), &bytes);
    if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
      throwFailure(named, static_cast<DWORD>(status));
    if (type != REG_SZ) return std::nullopt;
    if (bytes > RegistryStore::kLongestText) throwFailure(named, ERROR_FILE_TOO_LARGE);
    // Another program may have written a longer text since its length was told.
    text.resize(bytes / kUnitBytes + (status == ERROR_MORE_DATA ? 1 : 0));
    if (status == ERROR_SUCCESS) return text;
  }
}

}  // namespace

std::optional<std::string> RegistryStore::read(const std::string& application,
                                               const std::string& section,
                                               const std::string& key) const {
  const std::string path = base_ + "\\" + application + "\\" + section;
  RegistryKey opened;
  const LSTATUS status =
      RegOpenKeyExW(HKEY_CURRENT_USER, wideText(path).c_str(), 0, KEY_QUERY_VALUE, opened.out());
  if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
  if (status != ERROR_SUCCESS) throwFailure("The settings in " + path, static_cast<DWORD>(status));
  std::optional<std::wstring> text =
      valueOf(opened.get(), wideText(key), "The setting " + path + "\\" + key);
  if (!text) return std::nullopt;
  while (!text->empty() && text->back() == L'\0') text->pop_back();
  return utf8Text(*text);
}

void RegistryStore::write(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& text) {
  const std::string path = base_ + "\\" + application + "\\" + section;
  const std::string named = "The setting " + path + "\\" + key;
  const std::wstring value = wideText(text);
  const std::size_t bytes = (value.size() + 1) * kUnitBytes;
  if (bytes > kLongestText) throwFailure(named, ERROR_FILE_TOO_LARGE);
  RegistryKey created;
  LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, wideText(path).c_str(), 0, nullptr, 0,
                                   KEY_SET_VALUE, nullptr, created.out(), nullptr);
  if (status != ERROR_SUCCESS) throwFailure(named, static_cast<DWORD>(status));
  status = RegSetValueExW(created.get(), wideText(key).c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.c_str()), static_cast<DWORD>(bytes));
  if (status != ERROR_SUCCESS) throwFailure(named, static_cast<DWORD>(status));
}

}  // namespace nerolith::windows
