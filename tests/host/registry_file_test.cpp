#include "shared/registry_file.h"

#include <gtest/gtest.h>

#include "seam/platform_error.h"

namespace trelin {

namespace {

const std::string Header = "Windows Registry Editor Version 5.00\n";
const std::string Key = Header + "[HKEY_LOCAL_MACHINE\\K]\n";
const std::string Value = Key + "\"v\"=";

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
  for (const Case& c : {
           Case{Key + "\"V\"=\"C:\\\\a \\\"b\\\"\"\r\n", 1, "C:\\a \"b\""},
           Case{Key + "  \"v\" =\t\"\" ; comment", 1, ""},
           Case{Value + "\"\xC3\xA4\xE2\x82\xAC\xC2\x81\"", 1, "\xE4\x80\x81"},
           Case{Value + "dword:0000abCD", 4, std::string("\xCD\xAB\0\0", 4)},
           Case{Value + "hex:", 3, ""},
           Case{Value + "hex:01,fF,\\\r\n  00, \\\n\t7f", 3, std::string("\1\xFF\0\x7F", 4)},
           Case{Value + "hex(b):01,00", 11, std::string("\1\0", 2)},
           Case{Value + "hex(7):61,00,ac,20,00,00", 7, std::string("a\x80\0", 3)},
           Case{Value + "\"first\"\n; [HKEY_USERS]\n\n\"v\"=\"last\"", 1, "last"},
           Case{Header + "[hkey_local_MACHINE\\k]\n\"v\"=\"\"", 1, ""},
           Case{"\xEF\xBB\xBF" + Value + "\"\"", 1, ""},
           Case{Utf16(Value + "\"x\"", true), 1, "x"},
           Case{Utf16(Value + "\"", false) + "\xAC\x20\"" + '\0', 1, "\x80"},
       }) {
    const auto tree = ReadRegistryText(c.sFile, "test.reg");
    const RegistryNode* key = tree->FindKey("HKEY_LOCAL_MACHINE")->FindKey("K");
    const RegistryValue* value = key == nullptr ? nullptr : key->FindValue("v");
    ASSERT_NE(nullptr, value) << c.sFile;
    EXPECT_EQ(c.lType, value->lType) << c.sFile;
    EXPECT_EQ(c.sData, value->sData) << c.sFile;
  }
}

TEST(RegistryFile, SaysWhatIsWrong) {
  const std::string sHex = "bytes have two hexadecimal digits each and commas between them";
  const std::string sLine =
      "a line is a key such as [HKEY_LOCAL_MACHINE\\SOFTWARE], a value such as \"name\"=\"text\", "
      "or a comment after a semicolon";
  const std::string sFirst = "the first line must be \"Windows Registry Editor Version 5.00\"";
  const std::string sLevel =
      "the key's path has a level without a name; one backslash separates two names";
  const std::string sOdd =
      "a text in hexadecimal form is UTF-16 and has two bytes a character, but this one has an odd "
      "number of bytes";
  struct Case {
    std::string sFile;
    std::string sReason;  // after "line "
  };
  for (const Case& c : {
           Case{"", "1: " + sFirst},
           Case{Header + "\"v\"=\"x\"", "2: a value must stand below the line of its key"},
           Case{Key + "v=\"x\"", "3: " + sLine},
           Case{Header + "[HKEY_USERS\\K", "2: the key's closing bracket is missing"},
           Case{Header + "[HKEY_USERS\\]", "2: " + sLevel},
           Case{Key + "\"v=\n\n", "3: the text's closing quotation mark is missing"},
           Case{Value + "\"C:\\dir\"",
                "3: in a text, a backslash is written twice and a quotation mark as \\\""},
           Case{Value + "dword:12 34", "3: only a comment may follow the value"},
           Case{Value + "dword:123456789", "3: a dword has one to eight hexadecimal digits"},
           Case{Value + "hex:01,\\\n", "4: the bytes go on after the backslash, but the file ends"},
           Case{Value + "hex:01,\\\n\"w\"=\"\"", "4: " + sHex},
           Case{Value + "hex(1):61", "3: " + sOdd},
           Case{Value + "\"\xC3\xA4\xCE\xA9\"",
                "3: the character U+03A9 is not in the code page Windows-1252"},
           Case{Key + "\n\"v\"=\"\xE4\"",
                "4: there are bytes that are no UTF-8; save the file as UTF-8"},
           Case{Utf16(Key, true) + "\xD8\x3D\xDE" + '\0',
                "3: the character U+1F600 is not in the code page Windows-1252"},
           Case{Utf16(Key, false) + "x",
                "3: the file is UTF-16 but ends in the middle of a character"},
       })
    try {
      ReadRegistryText(c.sFile, "test.reg");
      ADD_FAILURE() << c.sFile;
    } catch (const PlatformError& error) {
      EXPECT_EQ("Could not read the registry file \"test.reg\": line " + c.sReason + ".",
                error.what());
    }
}

TEST(RegistryFile, WritesWhatPeopleCanRead) {
  const auto tree = RegistryNode::NewTree();
  RegistryNode& hive = *tree->FindKey("HKEY_LOCAL_MACHINE");
  hive.AddKey("B").AddKey("[k]]").SetValue("a \"b\"", 1, "C:\\x \xE4\x80");
  RegistryNode& key = hive.AddKey("A");
  key.SetValue("", 1, "");
  key.SetValue("dword", 4, std::string("\x1F\0\0\x80", 4));
  key.SetValue("break", 1, "\n");
  key.SetValue("bytes", 3, "abcdefghijklmnopqrstuvwxyz");
  key.AddKey("Empty").AddKey("Deep");
  EXPECT_EQ(Header + R"(
[HKEY_LOCAL_MACHINE\A]
@=""
"dword"=dword:8000001f
"break"=hex(1):0a,00
"bytes"=hex:61,62,63,64,65,66,67,68,69,6a,6b,6c,6d,6e,6f,70,71,72,73,74,75,76,77,78,\
  79,7a

[HKEY_LOCAL_MACHINE\A\Empty\Deep]

[HKEY_LOCAL_MACHINE\B\[k]]]
"a \"b\""="C:\\x ä€"
)",
            WriteRegistryText(*tree));
}

TEST(RegistryFile, EveryByteComesBack) {
  std::string sAll;
  for (int i = 0; i < 256; ++i) sAll += static_cast<char>(i);
  const std::string sName = sAll.substr(11) + sAll.substr(1, 9);  // no NUL, no line break
  std::string sKey = sName;
  sKey.erase(sKey.find('\\'), 1);
  const auto tree = RegistryNode::NewTree();
  RegistryNode& key = tree->Key(0).AddKey(sKey);
  for (const std::uint32_t lType : {0U, 1U, 2U, 3U, 4U, 7U, 11U, 0xFFFFFFFFU})
    for (const std::string& sData : {sAll, std::string(), std::string("text\0", 5)})
      key.SetValue(sName + std::to_string(key.Values().size()), lType, sData);
  const auto again = ReadRegistryText(WriteRegistryText(*tree), "test.reg");
  ASSERT_NE(nullptr, again->Key(0).FindKey(sKey));
  EXPECT_EQ(key.Values(), again->Key(0).FindKey(sKey)->Values());
}

}  // namespace

}  // namespace trelin
