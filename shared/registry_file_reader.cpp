/* The registry-export text format, by example:

     Windows Registry Editor Version 5.00

     ; a comment
     [HKEY_LOCAL_MACHINE\SOFTWARE\Korvanta\InstallLog]
     @="the default value"
     "INSPECT"="2.1"
     "INSPECTCheckFile"="C:\\Program Files\\Inspect\\inspect.exe"
     "quoted \"name\""=dword:0000001f
     "bytes"=hex:01,02,0a,\
       ff
     "a type by its number"=hex(b):00,00,00,00,00,00,00,00

   A key's line holds the values below it up to the next one; its name ends at
   the line's last bracket. A text stands for its characters; one that ends
   with a NUL, or holds a line break, has the hexadecimal form hex(1). Texts in
   that form (types 1, 2 and 7) are UTF-16, low byte first. Spaces and
   tabs may surround what is shown here, and a comment may follow a value. A
   key may come more than once; of two values of one name the last one counts.
*/

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "seam/platform_error.h"
#include "shared/code_page.h"
#include "shared/registry_file.h"
#include "shared/registry_text.h"

namespace trelin {

namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Reads one text from its first to its last line.
class Reader {
 public:
  explicit Reader(std::string_view sText)
      : sText_(sText), pNul_(sText.data() + std::min(sText.find('\0'), sText.size())) {}

  std::unique_ptr<RegistryNode> Read() {
    if (!NextLine() || sLine_ != RegistryFileHeader)
      Fail("the first line must be \"" + std::string(RegistryFileHeader) + "\"");
    while (NextLine()) ReadLine();
    return std::move(tree_);
  }

 private:
  [[noreturn]] void Fail(const std::string& sReason) const {
    throw RegistryFileFault{nLine_, sReason};
  }

  // The rest of the current line is in sLine_, without blanks at both ends.
  bool NextLine() {
    nLine_ += 1;
    sLine_ = {};
    if (sText_.empty()) return false;
    const std::size_t nEnd = std::min(sText_.find('\n'), sText_.size());
    sLine_ = sText_.substr(0, nEnd);
    sText_.remove_prefix(std::min(nEnd + 1, sText_.size()));
    if (sLine_.ends_with('\r')) sLine_.remove_suffix(1);
    while (!sLine_.empty() && IsBlank(sLine_.back())) sLine_.remove_suffix(1);
    SkipBlanks();
    if (sLine_.data() + sLine_.size() > pNul_) Fail("there is a NUL character in the line");
    return true;
  }

  void SkipBlanks() {
    while (!sLine_.empty() && IsBlank(sLine_.front())) sLine_.remove_prefix(1);
  }

  bool Skip(std::string_view sStart) {
    if (!sLine_.starts_with(sStart)) return false;
    sLine_.remove_prefix(sStart.size());
    return true;
  }

  void ReadLine() {
    if (sLine_.empty() || sLine_[0] == ';') return;
    if (sLine_[0] == '[') return ReadKey();
    if (sLine_[0] != '"' && sLine_[0] != '@')
      Fail(
          "a line is a key such as [HKEY_LOCAL_MACHINE\\SOFTWARE], a value such as "
          "\"name\"=\"text\", or a comment after a semicolon");
    if (key_ == nullptr) Fail("a value must stand below the line of its key");
    ReadValue();
  }

  void ReadKey() {
    const std::size_t nEnd = sLine_.rfind(']');
    if (nEnd == std::string_view::npos) Fail("the key's closing bracket is missing");
    if (nEnd + 1 < sLine_.size()) Fail("nothing may follow the key's closing bracket");
    std::string_view sPath = sLine_.substr(1, nEnd - 1);
    if (sPath.starts_with('-'))
      Fail("a key cannot be deleted with [-...] here; remove its lines from the file");
    key_ = &Hive(TakeName(sPath));
    for (std::size_t nDepth = 1; !sPath.empty(); ++nDepth) AddLevel(TakeName(sPath), nDepth);
  }

  // Takes the next level off the front of a path, with the backslash after it.
  std::string_view TakeName(std::string_view& sPath) const {
    const std::size_t nEnd = std::min(sPath.find('\\'), sPath.size());
    const std::string_view sName = sPath.substr(0, nEnd);
    sPath.remove_prefix(std::min(nEnd + 1, sPath.size()));
    if (sName.empty() || (sPath.empty() && sLine_.ends_with("\\]")))
      Fail("the key's path has a level without a name; one backslash separates two names");
    return sName;
  }

  RegistryNode& Hive(std::string_view sName) const {
    RegistryNode* hive = tree_->FindKey(sName);
    if (hive == nullptr)
      Fail("\"" + std::string(sName) +
           "\" is no hive; a key begins with HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, "
           "HKEY_LOCAL_MACHINE, HKEY_USERS or HKEY_CURRENT_CONFIG");
    return *hive;
  }

  void AddLevel(std::string_view sName, std::size_t nDepth) {
    if (sName.size() > RegistryLongestKeyName)
      Fail("a key's name has more than " + std::to_string(RegistryLongestKeyName) + " characters");
    if (nDepth >= RegistryDeepestLevel)
      Fail("the key lies more than " + std::to_string(RegistryDeepestLevel) + " levels deep");
    key_ = &key_->AddKey(sName);
  }

  void ReadValue() {
    std::string sName = Skip("@") ? "" : ReadQuoted();
    if (sName.size() > RegistryLongestValueName)
      Fail("the value's name has more than " + std::to_string(RegistryLongestValueName) +
           " characters");
    SkipBlanks();
    if (!Skip("=")) Fail("an equals sign must follow the value's name");
    SkipBlanks();
    ReadData(std::move(sName));
    SkipBlanks();
    if (!sLine_.empty() && sLine_[0] != ';') Fail("only a comment may follow the value");
  }

  void ReadData(std::string sName) {
    if (sLine_.starts_with('"'))
      key_->SetValue(std::move(sName), RegistryTypeText, ReadQuoted());
    else if (Skip("dword:"))
      key_->SetValue(std::move(sName), RegistryTypeDword, ReadDword());
    else if (Skip("hex:"))
      key_->SetValue(std::move(sName), RegistryTypeBinary, ReadBytes());
    else if (Skip("hex("))
      ReadTyped(std::move(sName));
    else if (sLine_ == "-")
      Fail("a value cannot be deleted with =- here; remove its line from the file");
    else
      Fail("a value is \"text\", dword: with a number, or hex: or hex(type): with bytes");
  }

  // A text in quotation marks, of which sLine_ begins with the first.
  std::string ReadQuoted() {
    sLine_.remove_prefix(1);
    const std::string_view sPlain = sLine_.substr(0, sLine_.find('"'));
    if (sPlain.size() == sLine_.size() || sPlain.find('\\') != std::string_view::npos)
      return ReadEscaped();
    sLine_.remove_prefix(sPlain.size() + 1);
    return std::string(sPlain);
  }

  // One with backslashes, behind the first quotation mark.
  std::string ReadEscaped() {
    std::string sText(sLine_.size(), '\0');
    auto end = sText.begin();
    std::size_t n = 0;
    for (; n < sLine_.size() && sLine_[n] != '"'; ++n) {
      if (sLine_[n] == '\\') CheckEscaped(++n);
      *end++ = sLine_[n];
    }
    if (n == sLine_.size()) Fail("the text's closing quotation mark is missing");
    sText.erase(end, sText.end());
    sLine_.remove_prefix(n + 1);
    return sText;
  }

  // Behind a backslash in a text.
  void CheckEscaped(std::size_t n) const {
    if (n == sLine_.size() || (sLine_[n] != '"' && sLine_[n] != '\\'))
      Fail("in a text, a backslash is written twice and a quotation mark as \\\"");
  }

  // One to eight hexadecimal digits.
  bool ReadNumber(std::uint32_t& lNumber) {
    const char* begin = sLine_.data();
    const auto [end, error] = std::from_chars(begin, begin + sLine_.size(), lNumber, 16);
    const auto nDigits = static_cast<std::size_t>(end - begin);
    if (error != std::errc() || nDigits > 8) return false;
    sLine_.remove_prefix(nDigits);
    return true;
  }

  std::string ReadDword() {
    std::uint32_t lNumber = 0;
    if (!ReadNumber(lNumber)) Fail("a dword has one to eight hexadecimal digits");
    std::string sData;
    for (int nShift = 0; nShift < 32; nShift += 8)
      sData += static_cast<char>(lNumber >> nShift & 0xFF);
    return sData;
  }

  void ReadTyped(std::string sName) {
    std::uint32_t lType = 0;
    if (!ReadNumber(lType) || !Skip("):"))
      Fail("the type in hex(...): has one to eight hexadecimal digits");
    std::string sData = ReadBytes();
    if (IsRegistryText(lType)) sData = DecodeUtf16Data(sData, nLine_);
    key_->SetValue(std::move(sName), lType, std::move(sData));
  }

  std::string ReadBytes() {
    std::string sBytes;
    SkipBlanks();
    ContinueLine();
    if (sLine_.empty() || sLine_[0] == ';') return sBytes;
    for (sBytes += ReadByte(); Skip(","); sBytes += ReadByte()) ContinueLine();
    return sBytes;
  }

  void ContinueLine() {
    SkipBlanks();
    while (sLine_ == "\\")
      if (!NextLine()) Fail("the bytes go on after the backslash, but the file ends");
  }

  char ReadByte() {
    const int nHigh = sLine_.empty() ? -1 : HexDigit(sLine_[0]);
    const int nLow = sLine_.size() < 2 ? -1 : HexDigit(sLine_[1]);
    if (nHigh < 0 || nLow < 0 || (sLine_.size() > 2 && HexDigit(sLine_[2]) >= 0))
      Fail("bytes have two hexadecimal digits each and commas between them");
    sLine_.remove_prefix(2);
    return static_cast<char>(nHigh << 4 | nLow);
  }

  std::string_view sText_;  // the lines that follow
  const char* pNul_;        // the first NUL character, or the end of all lines
  std::string_view sLine_;
  std::size_t nLine_ = 0;
  std::unique_ptr<RegistryNode> tree_ = RegistryNode::NewTree();
  RegistryNode* key_ = nullptr;  // of the values to come
};

}  // namespace

std::unique_ptr<RegistryNode> ReadRegistryText(std::string_view sBytes,
                                               const std::function<std::string()>& path) {
  try {
    if (IsAscii(sBytes)) return Reader(sBytes).Read();
    return Reader(DecodeRegistryText(sBytes)).Read();
  } catch (const RegistryFileFault& fault) {
    throw PlatformError("read the registry file", path(),
                        "line " + std::to_string(fault.nLine) + ": " + fault.sReason);
  }
}

std::unique_ptr<RegistryNode> ReadRegistryText(std::string_view sBytes, const std::string& sPath) {
  return ReadRegistryText(sBytes, [&sPath] { return sPath; });
}

}  // namespace trelin
