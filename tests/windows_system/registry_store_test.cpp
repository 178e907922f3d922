#include "platform/windows/registry_store.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "windows_system/scratch_key.h"

namespace nerolith::windows {
namespace {

TEST(RegistryStore, KeepsItsTextsAtThePlayersKeys) {
  RegistryStore store;
  const std::string application = "Nerolith test " + std::to_string(GetCurrentProcessId());
  store.write(application, "Path", "plname", "\xC3\xA9t\xC3\xA9");
  const std::wstring key = L"Software\\VB and VBA Program Settings\\" + wideText(application);
  wchar_t text[8];
  DWORD bytes = sizeof text;
  EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, (key + L"\\Path").c_str(), L"plname", RRF_RT_REG_SZ,
                         nullptr, text, &bytes),
            ERROR_SUCCESS);
  EXPECT_EQ(bytes, 8u);  // the zero at the end belongs to a stored string
  EXPECT_STREQ(text, L"\xE9t\xE9");
  RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
}

TEST(RegistryStore, AValueOfAnotherTypeIsAbsentUntilItIsWritten) {
  const ScratchKey scratch;
  RegistryStore store(scratch.path());
  const DWORD number = 42;
  const std::string bytes(100000, 'b');
  scratch.put("A\\S", "number", REG_DWORD, &number, sizeof number);
  scratch.put("A\\S", "bytes", REG_BINARY, bytes.data(), bytes.size());
  scratch.put("A\\S", "list", REG_MULTI_SZ, L"one\0two\0", 18);
  scratch.put("A\\S", "none", REG_NONE, nullptr, 0);
  for (const char* name : {"number", "bytes", "list", "none"}) {
    EXPECT_EQ(store.read("A", "S", name), std::nullopt) << name;
    store.write("A", "S", name, "text");
    EXPECT_EQ(store.read("A", "S", name), "text") << name;
  }
}

TEST(RegistryStore, ReadsAMegabyteInFull) {
  const ScratchKey scratch;
  const RegistryStore store(scratch.path());
  std::wstring text(1 << 19, L'x');
  text[text.size() - 1] = L'!';
  scratch.put("A\\S", "long", REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  EXPECT_EQ(store.read("A", "S", "long"), utf8Text(text));
}

TEST(RegistryStore, ATextBeyondTheLimitIsAFailureAndLeavesTheOldOne) {
  const ScratchKey scratch;
  RegistryStore store(scratch.path());
  store.write("A", "S", "k", "old");
  EXPECT_THROW(store.write("A", "S", "k", std::string(RegistryStore::kLongestText, 'x')),
               platform::Failure);
  EXPECT_EQ(store.read("A", "S", "k"), "old");
  const std::wstring text(RegistryStore::kLongestText, L'x');
  scratch.put("A\\S", "k", REG_SZ, text.c_str(), text.size() * sizeof(wchar_t));
  EXPECT_THROW(store.read("A", "S", "k"), platform::Failure);
}

TEST(RegistryStore, ReadsStringsThatWereStoredCarelessly) {
  const ScratchKey scratch;
  const RegistryStore store(scratch.path());
  scratch.put("A\\S", "unended", REG_SZ, L"abc", 6);
  scratch.put("A\\S", "odd", REG_SZ, L"abc", 5);
  scratch.put("A\\S", "empty", REG_SZ, L"", 0);
  scratch.put("A\\S", "one", REG_SZ, L"a", 1);
  scratch.put("A\\S", "zeros", REG_SZ, L"ab\0\0\0", 10);
  EXPECT_EQ(store.read("A", "S", "unended"), "abc");
  EXPECT_EQ(store.read("A", "S", "odd"), "ab");
  EXPECT_EQ(store.read("A", "S", "empty"), "");
  EXPECT_EQ(store.read("A", "S", "one"), "");
  EXPECT_EQ(store.read("A", "S", "zeros"), "ab");
}

TEST(RegistryStore, ANameThatCannotBeIsNoCrash) {
  const ScratchKey scratch;
  RegistryStore store(scratch.path());
  const std::string endless(70000, 'n');
  try {
    EXPECT_EQ(store.read("A", "S", endless), std::nullopt);
    EXPECT_EQ(store.read(endless, "S", "k"), std::nullopt);
  } catch (const platform::Failure& failure) {
    EXPECT_NE(failure.code(), 0);
  }
  EXPECT_THROW(store.write(endless, "S", "k", "text"), platform::Failure);
}

TEST(RegistryStore, SurrogatesAloneComeBack) {
  const ScratchKey scratch;
  RegistryStore store(scratch.path());
  const std::string odd = utf8Text(std::wstring{L'a', wchar_t(0xD800), L'b'});
  store.write("A", "S", "k", odd);
  EXPECT_EQ(store.read("A", "S", "k"), odd);
}

}  // namespace
}  // namespace nerolith::windows
