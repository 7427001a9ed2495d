#include "platform/host/registry_file.h"

#include <gtest/gtest.h>

#include "platform/memory_registry.h"
#include "platform/platform_error.h"

namespace trelin {

namespace {

const std::string Header = "Windows Registry Editor Version 5.00\n";
const std::string Key = Header + "[HKEY_LOCAL_MACHINE\\K]\n";
const std::string Value = Key + "\"v\"=";

std::string NulEnded(const std::string& sText) { return sText + '\0'; }

// The value "v" of the key HKEY_LOCAL_MACHINE\K.
RegistryValue ReadValue(const std::string& sBytes) {
  MemoryRegistry registry;
  registry.ReplaceTree(ReadRegistryText(sBytes, "test.reg"));
  const RegistryNode* node = registry.Find(RegistryKey::LocalMachine, "K");
  const RegistryValue* value = node == nullptr ? nullptr : node->FindValue("v");
  return value == nullptr ? RegistryValue{} : *value;
}

std::string Utf16(const std::string& sAscii, bool bHighByteFirst) {
  std::string sBytes = bHighByteFirst ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : sAscii)
    sBytes += bHighByteFirst ? std::string{'\0', c} : std::string{c, '\0'};
  return sBytes;
}

TEST(RegistryFile, ReadsEveryFormOfAValue) {
  struct Case {
    std::string sFile;
    std::uint32_t lType;
    std::string sData;
  };
  const std::vector<Case> cases = {
      {Value + "\"2.1\"", 1, "2.1"},
      {Key + "\"V\"=\"C:\\\\a \\\"b\\\"\"\r\n", 1, "C:\\a \"b\""},
      {Key + "  \"v\" =\t\"\" ; comment", 1, ""},
      {Value + "\"\xC3\xA4\xE2\x82\xAC\xC2\x81\"", 1, "\xE4\x80\x81"},
      {Value + "dword:0000abCD", 4, std::string("\xCD\xAB\0\0", 4)},
      {Value + "dword:1", 4, std::string("\1\0\0\0", 4)},
      {Value + "hex:", 3, ""},
      {Value + "hex:01,fF,\\\r\n  00, \\\n\t7f", 3, std::string("\1\xFF\0\x7F", 4)},
      {Value + "hex(b):01,00,00,00,00,00,00,00", 11, std::string("\1\0\0\0\0\0\0\0", 8)},
      {Value + "hex(1):61,00,ac,20", 1, "a\x80"},
      {Value + "hex(2):25,00,00,00", 2, NulEnded("%")},
      {Value + "hex(7):61,00,00,00,00,00", 7, std::string("a\0\0", 3)},
      {Value + "\"first\"\n; [HKEY_USERS]\n\n\"v\"=\"last\"", 1, "last"},
      {Header + "[hkey_local_MACHINE\\k]\n\"v\"=\"\"", 1, ""},
      {"\xEF\xBB\xBF" + Value + "\"\"", 1, ""},
      {Utf16(Value + "\"x\"", false), 1, "x"},
      {Utf16(Value + "\"x\"", true), 1, "x"},
      {Utf16(Value + "\"", false) + "\xAC\x20\"" + NulEnded(""), 1, "\x80"},
  };
  for (const Case& c : cases) {
    const RegistryValue value = ReadValue(c.sFile);
    EXPECT_EQ(c.lType, value.lType) << c.sFile;
    EXPECT_EQ(c.sData, value.sData) << c.sFile;
  }
}

TEST(RegistryFile, SaysWhatIsWrong) {
  const std::string sHex = "bytes have two hexadecimal digits each and commas between them";
  const std::string sLine =
      "a line is a key such as [HKEY_LOCAL_MACHINE\\SOFTWARE], a value such as \"name\"=\"text\", "
      "or a comment after a semicolon";
  const std::string sLevel =
      "the key's path has a level without a name; one backslash separates two names";
  const std::string sQuote = "the text's closing quotation mark is missing";
  const std::string sFollow = "only a comment may follow the value";
  const std::string sFirst = "1: the first line must be \"Windows Registry Editor Version 5.00\"";
  const std::string sUtf8 = "there are bytes that are no UTF-8; save the file as UTF-8";
  struct Case {
    std::string sFile;
    std::string sReason;  // after "line "
  };
  const std::vector<Case> cases = {
      {"", sFirst},
      {"REGEDIT4\n", sFirst},
      {Header + "\"v\"=\"x\"", "2: a value must stand below the line of its key"},
      {Key + "v=\"x\"", "3: " + sLine},
      {Header + "[HKEY_LOCAL_MACHINE\\K", "2: the key's closing bracket is missing"},
      {Header + "[HKEY_USERS\\K] x", "2: nothing may follow the key's closing bracket"},
      {Header + "[HKEY_USERS\\\\K]", "2: " + sLevel},
      {Header + "[HKEY_USERS\\]", "2: " + sLevel},
      {Header + "[HKLM\\K]",
       "2: \"HKLM\" is no hive; a key begins with HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, "
       "HKEY_LOCAL_MACHINE, HKEY_USERS or HKEY_CURRENT_CONFIG"},
      {Header + "[-HKEY_USERS\\K]",
       "2: a key cannot be deleted with [-...] here; remove its lines from the file"},
      {Header + "[HKEY_USERS\\" + std::string(256, 'k') + "]",
       "2: a key's name has more than 255 characters"},
      {Value + "-", "3: a value cannot be deleted with =- here; remove its line from the file"},
      {Key + "\"v\"", "3: an equals sign must follow the value's name"},
      {Key + "\"v=\n\n", "3: " + sQuote},
      {Value + "\"C:\\dir\"",
       "3: in a text, a backslash is written twice and a quotation mark as \\\""},
      {Value + "\"x\" y", "3: " + sFollow},
      {Value + "x",
       "3: a value is \"text\", dword: with a number, or hex: or hex(type): with bytes"},
      {Value + "dword:123456789", "3: a dword has one to eight hexadecimal digits"},

      {Value + "dword:12 34", "3: " + sFollow},
      {Value + "hex:012", "3: " + sHex},
      {Value + "hex:01,\\\n", "4: the bytes go on after the backslash, but the file ends"},
      {Value + "hex:01,\\\n\"w\"=\"\"", "4: " + sHex},
      {Value + "hex():00", "3: the type in hex(...): has one to eight hexadecimal digits"},
      {Value + "hex(1):61",
       "3: a text in hexadecimal form is UTF-16 and has two bytes a character, but this one has "
       "an odd number of bytes"},
      {Value + "hex(1):3d,d8,00,de",
       "3: the character U+1F600 is not in the code page Windows-1252"},
      {Value + "\"\xC3\xA4\xCE\xA9\"",
       "3: the character U+03A9 is not in the code page Windows-1252"},
      {Key + "\n\"v\"=\"\xE4\"", "4: " + sUtf8},
      {Key + "\xC0\xAF", "3: " + sUtf8},
      {Utf16(Key, true) + "\x03\xA9",
       "3: the character U+03A9 is not in the code page Windows-1252"},
      {Utf16(Key, false) + "x", "3: the file is UTF-16 but ends in the middle of a character"},
      {NulEnded(Header), "2: there is a NUL character in the line"},
  };
  for (const Case& c : cases) try {
      ReadRegistryText(c.sFile, "test.reg");
      ADD_FAILURE() << c.sFile;
    } catch (const PlatformError& error) {
      EXPECT_EQ("Could not read the registry file \"test.reg\": line " + c.sReason + ".",
                error.what());
    }
}

TEST(RegistryFile, WritesWhatPeopleCanRead) {
  MemoryRegistry registry;
  registry.SetText("HKEY_LOCAL_MACHINE\\B\\[k]]", "a \"b\"", "C:\\x \xE4");
  registry.SetText("HKEY_LOCAL_MACHINE\\A", "", "");
  RegistryKey hKey = RegistryKey::None;
  registry.OpenKey(RegistryKey::LocalMachine, "A", RegistryReadWrite, hKey);
  registry.SetValue(hKey, "dword", 4, "\x1F\0\0\x80", 4);
  registry.SetValue(hKey, "line", 1, "\x80\"", 2);
  registry.SetValue(hKey, "break", 1, "\n", 2);
  registry.SetValue(hKey, "ended", 1, "a", 2);
  registry.SetValue(hKey, "bytes", 3, "abcdefghijklmnopqrstuvwxyz", 26);
  registry.CreateKey(hKey, "Empty\\Deep", RegistryReadWrite, hKey);
  EXPECT_EQ(Header + R"(
[HKEY_LOCAL_MACHINE\A]
@=""
"dword"=dword:8000001f
"line"="€\""
"break"=hex(1):0a,00,00,00
"ended"=hex(1):61,00,00,00
"bytes"=hex:61,62,63,64,65,66,67,68,69,6a,6b,6c,6d,6e,6f,70,71,72,73,74,75,76,77,78,\
  79,7a

[HKEY_LOCAL_MACHINE\A\Empty\Deep]

[HKEY_LOCAL_MACHINE\B\[k]]]
"a \"b\""="C:\\x ä"
)",
            WriteRegistryText(registry.Tree()));
}

TEST(RegistryFile, EveryByteComesBack) {
  std::string sAll;
  for (int i = 0; i < 256; ++i) sAll += static_cast<char>(i);
  std::string sName = sAll.substr(1);
  sName.erase(sName.find('\n'), 1);
  const auto tree = RegistryNode::NewTree();
  RegistryNode& key = tree->Key(0);
  for (const std::uint32_t lType : {0U, 1U, 2U, 3U, 4U, 7U, 11U, 0xFFFFFFFFU})
    for (const std::string& sData : {sAll, std::string(), NulEnded("text"), NulEnded(NulEnded(""))})
      key.SetValue(sName + std::to_string(key.Values().size()), lType, sData);
  std::string sKey = sName;
  sKey.erase(sKey.find('\\'), 1);
  key.AddKey(sKey).AddKey(" ");
  const auto again = ReadRegistryText(WriteRegistryText(*tree), "test.reg");
  EXPECT_EQ(key.Values(), again->Key(0).Values());
  ASSERT_NE(nullptr, again->Key(0).FindKey(sKey));
  EXPECT_NE(nullptr, again->Key(0).FindKey(sKey)->FindKey(" "));
}

}  // namespace

}  // namespace trelin
