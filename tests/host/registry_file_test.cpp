#include "shared/registry_file.h"

#include <gtest/gtest.h>

#include "testing/fake_platform.h"

namespace trelin {

namespace {

const std::string Header = "Windows Registry Editor Version 5.00\n";
const std::string WithKey = Header + "[HKEY_LOCAL_MACHINE\\K]\n";
const std::string WithValue = WithKey + "\"v\"=";

std::string Utf16(const std::string& sAscii, bool bHighByteFirst) {
  std::string sBytes = bHighByteFirst ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : sAscii)
    sBytes += bHighByteFirst ? std::string{'\0', c} : std::string{c, '\0'};
  return sBytes;
}

TEST(RegistryFile, ReadsEveryFormOfAValue) {
  const struct {
    std::string sFile;
    std::uint32_t lType;
    std::string sData;
  } cases[] = {
      {WithKey + "\"V\"=\"C:\\\\a \\\"b\\\"\"\r\n", 1, "C:\\a \"b\""},
      {WithKey + "  \"v\" =\t\" x \" ; comment", 1, " x "},
      {WithValue + "\"\xC3\xA4\xE2\x82\xAC\xC2\x81\"", 1, "\xE4\x80\x81"},
      {WithValue + "dword:0000abCD", 4, std::string("\xCD\xAB\0\0", 4)},
      {WithValue + "hex:", 3, ""},
      {WithValue + "hex:01,fF,\\\r\n  00, \\\n\t7f", 3, std::string("\1\xFF\0\x7F", 4)},
      {WithValue + "hex(b):01,00", 11, std::string("\1\0", 2)},
      {WithValue + "hex(7):61,00,ac,20,00,00", 7, std::string("a\x80\0", 3)},
      {WithValue + "\"first\"\n; [HKEY_USERS]\n\n\"v\"=\"last\"", 1, "last"},
      {WithValue + "\"x\"\n[HKEY_USERS\\K]\n[HKEY_LOCAL_MACHINE\\k]\n@=\"y\"", 1, "x"},
      {Header + "[hkey_local_MACHINE\\k]\n\"v\"=\"\"", 1, ""},
      {"\xEF\xBB\xBF" + WithValue + "\"\"", 1, ""},
      {Utf16(WithValue + "\"x\"", true), 1, "x"},
      {Utf16(WithValue + "\"", false) + "\xAC\x20\"" + '\0', 1, "\x80"},
  };
  for (const auto& c : cases) {
    const auto tree = ReadRegistryText(c.sFile, "test.reg");
    const RegistryNode* key = tree->FindKey("HKEY_LOCAL_MACHINE")->FindKey("K");
    const RegistryValue* value = key == nullptr ? nullptr : key->FindValue("v");
    ASSERT_NE(nullptr, value) << c.sFile;
    EXPECT_EQ(c.lType, value->lType) << c.sFile;
    EXPECT_EQ(c.sData, value->sData) << c.sFile;
  }
}

TEST(RegistryFile, SaysWhatIsWrong) {
  std::string sDeep = Header + "[HKEY_USERS";
  for (int i = 2; i <= 512; ++i) sDeep += "\\k";
  const std::string sBytes = "bytes have two hexadecimal digits each and commas between";
  const std::pair<std::string, std::string> cases[] = {
      {"", "1: the first line must be \"Windows Registry Editor Version 5.00\""},
      {Header + "\"v\"=\"x\"", "2: a value must stand below the line of its key"},
      {WithKey + "v=\"x\"", "3: a line is a key such as [HKEY_LOCAL_MACHINE\\SOFTWARE], a value"},
      {Header + "[HKEY_NONE\\K]", "2: \"HKEY_NONE\" is no hive; a key begins with HKEY_CLASSES"},
      {Header + "[HKEY_USERS\\K", "2: the key's closing bracket is missing"},
      {Header + "[HKEY_USERS] ;", "2: nothing may follow the key's closing bracket"},
      {Header + "[HKEY_USERS\\]", "2: the key's path has a level without a name"},
      {Header + "[HKEY_USERS\\\\K]", "2: the key's path has a level without a name"},
      {Header + "[-HKEY_USERS\\K]", "2: a key cannot be deleted with [-...] here"},
      {Header + "[HKEY_USERS\\" + std::string(255, 'k') + "]\n\n", "none"},
      {Header + "[HKEY_USERS\\" + std::string(256, 'k') + "]\n\n", "2: a key's name has more than"},
      {sDeep + "]", "none"},
      {sDeep + "\\k]", "2: the key lies more than 512 levels deep"},
      {WithKey + '"' + std::string(16383, 'v') + "\"=\"\"", "none"},
      {WithKey + '"' + std::string(16384, 'v') + "\"=\"\"", "3: the value's name has more than"},
      {WithKey + "\"v=\n\n", "3: the text's closing quotation mark is missing"},
      {WithKey + "\"v\" \"x\"", "3: an equals sign must follow the value's name"},
      {WithValue + "-", "3: a value cannot be deleted with =- here"},
      {WithValue + "x", "3: a value is \"text\", dword: with a number, or hex: or hex(type):"},
      {WithValue + "\"C:\\dir\"", "3: in a text, a backslash is written twice"},
      {WithValue + "dword:12 34", "3: only a comment may follow the value"},
      {WithValue + "dword:000000001", "3: a dword has one to eight hexadecimal digits"},
      {WithValue + "hex(x):01", "3: the type in hex(...): has one to eight hexadecimal digits"},
      {WithValue + "hex(1:01", "3: the type in hex(...): has one to eight hexadecimal digits"},
      {WithValue + "hex:01,\\\n", "4: the bytes go on after the backslash, but the file ends"},
      {WithValue + "hex:01,\\\n\"w\"=\"\"", "4: " + sBytes},
      {WithValue + "hex:0", "3: " + sBytes},
      {WithValue + "hex:012", "3: " + sBytes},
      {WithValue + "hex(1):61", "3: a text in hexadecimal form is UTF-16 and has two bytes a"},
      {WithValue + '"' + '\0', "3: there is a NUL character in the line"},
      {WithValue + "\"\xC3\xA4\xCE\xA9\"", "3: the character U+03A9 is not in the code page"},
      {WithKey + "\n\"v\"=\"\xE4\"", "4: there are bytes that are no UTF-8"},
      {Utf16(WithKey, true) + "\xD8\x3D\xDE" + '\0', "3: the character U+1F600 is not in the code"},
      {Utf16(WithKey, false) + "x", "3: the file is UTF-16 but ends in the middle of a character"},
  };
  const std::string sBegin = "Could not read the registry file \"test.reg\": line ";
  for (const auto& [sFile, sReason] : cases) {
    const std::string sFailure =
        Failure([&, &sText = sFile] { ReadRegistryText(sText, "test.reg"); });
    EXPECT_TRUE(sFailure.starts_with(sReason == "none" ? sReason : sBegin + sReason))
        << sFailure << " instead of line " << sReason;
  }
}

TEST(RegistryFile, WritesWhatPeopleCanReadAndReadsItAgain) {
  const auto tree = RegistryNode::NewTree();
  RegistryNode& hive = *tree->FindKey("HKEY_LOCAL_MACHINE");
  hive.AddKey("B").AddKey("[k]]").SetValue("a \"b\"", 1, "C:\\x \xE4\x80");
  RegistryNode& key = hive.AddKey("A");
  key.SetValue("", 1, "");
  key.SetValue("dword", 4, std::string("\x1F\0\0\x80", 4));
  key.SetValue("break", 1, "\n");
  key.SetValue("bytes", 3, "abcdefghijklmnopqrstuvwxyz");
  key.AddKey("Empty").AddKey("Deep");
  const std::string sText = WriteRegistryText(*tree);
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
            sText);
  EXPECT_EQ(sText, WriteRegistryText(*ReadRegistryText(sText, "test.reg")));
}

TEST(RegistryFile, EveryByteComesBack) {
  std::string sAll;
  for (int i = 0; i < 256; ++i) sAll += static_cast<char>(i);
  const std::string sName = sAll.substr(11) + sAll.substr(1, 9);  // no NUL, no line break
  const auto tree = RegistryNode::NewTree();
  for (const std::uint32_t lType : {0U, 1U, 2U, 3U, 4U, 7U, 0xFFFFFFFFU})
    for (const std::string& sData : {sAll, std::string("text\0", 5), std::string("\r\x1F")})
      tree->Key(0).SetValue(sName + std::to_string(tree->Key(0).AllValues().size()), lType, sData);
  EXPECT_EQ(tree->Key(0).AllValues(),
            ReadRegistryText(WriteRegistryText(*tree), "test.reg")->Key(0).AllValues());
}

}  // namespace

}  // namespace trelin
