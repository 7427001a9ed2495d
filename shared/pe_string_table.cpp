// The format, as far as it is read here. Numbers are little-endian; u16 and
// u32 have 2 and 4 bytes.
//
//   0x0000  "MZ"                     the file begins with a DOS header
//   0x003C  u32 0x78                 where the signature lies
//
//   0x0078  "PE" 0 0                 signature
//   0x007C  u16 machine              file header, 20 bytes
//           u16 1                    number of sections
//       +16 u16 0xF0                 length of the optional header
//   0x0090  u16 0x20B                optional header: 0x10B is PE32, 0x20B PE32+
//       +92 u32 16                   number of data directories; PE32+: +108
//       +96 {u32 address, u32 size}  the data directories; PE32+: +112
//           ...                      number 2 is the resource directory
//   0x0180  40 bytes a section:      the section table, after the optional header
//        +8 u32 memory size, u32 address, u32 file size, u32 file offset
//
// Addresses count from where the library lies in memory; a section says which
// bytes of the file stand at which addresses.
//
// The resources are a tree of three levels, type / name / language. Offsets in
// it count from the start of the resource directory:
//
//   +0      12 bytes, u16 number of named entries, u16 number of id entries
//   +16     {u32 id, u32 offset}     the entries, the named ones first
//             6,    0x80000018       type 6 is the string table; the top bit
//             2188, 0x80000030       says that a directory follows, here the
//             0x409,      0x48       one of a block, then that of its languages
//   +0x48   u32 address, u32 length  the data of one block in one language
//
// A block holds 16 strings: block 2188 those with the numbers 35000 - 8 =
// (2188 - 1) * 16 to 35007. Each is a u16 length and so many UTF-16 characters;
// a string that does not exist has length 0.

#include "shared/pe_string_table.h"

#include <utility>
#include <vector>

namespace trelin {

namespace {

constexpr std::uint32_t StringTableType = 6;
constexpr std::uint32_t ResourceDirectory = 2;
constexpr std::uint32_t SubdirectoryBit = 0x80000000;
constexpr std::uint32_t EnglishUnitedStates = 0x409;
constexpr std::uint32_t NeutralLanguage = 0;
constexpr std::uint32_t StringsPerBlock = 16;

// Directories may share subdirectories, so that a small damaged file could
// describe a giant tree. A library with all 65,536 strings in ten languages
// has not a tenth of this.
constexpr std::uint32_t MaxEntries = 1'000'000;

struct Damaged {};

using Offset = std::uint64_t;  // the sum of two 32-bit numbers fits

std::string_view Part(std::string_view sBytes, Offset nOffset, Offset nLength) {
  if (nOffset > sBytes.size() || nLength > sBytes.size() - nOffset) throw Damaged();
  return sBytes.substr(static_cast<std::size_t>(nOffset), static_cast<std::size_t>(nLength));
}

std::string_view Rest(std::string_view sBytes, Offset nOffset) {
  if (nOffset > sBytes.size()) throw Damaged();
  return sBytes.substr(static_cast<std::size_t>(nOffset));
}

std::uint16_t U16(std::string_view sBytes, Offset nOffset) {
  const std::string_view sNumber = Part(sBytes, nOffset, 2);
  const auto nLow = static_cast<std::uint8_t>(sNumber[0]);
  const auto nHigh = static_cast<std::uint8_t>(sNumber[1]);
  return static_cast<std::uint16_t>(nHigh << 8 | nLow);
}

std::uint32_t U32(std::string_view sBytes, Offset nOffset) {
  return static_cast<std::uint32_t>(U16(sBytes, nOffset + 2)) << 16 | U16(sBytes, nOffset);
}

// The parts of the file by their addresses.
class Image {
 public:
  explicit Image(std::string_view sFile) {
    if (Part(sFile, 0, 2) != "MZ") throw Damaged();
    const Offset nSignature = U32(sFile, 0x3C);
    if (Part(sFile, nSignature, 4) != std::string_view("PE\0\0", 4)) throw Damaged();

    const Offset nHeader = nSignature + 24;
    const std::uint16_t nHeaderLength = U16(sFile, nSignature + 20);
    ReadOptionalHeader(Part(sFile, nHeader, nHeaderLength));
    ReadSections(sFile, nHeader + nHeaderLength, U16(sFile, nSignature + 6));
  }

  // Where the resource directory starts, to the end of its section; nothing
  // when the library has none.
  std::optional<std::string_view> Resources() const {
    if (lResources_ == 0) return std::nullopt;
    return FromAddress(lResources_);
  }

  std::string_view FromAddress(std::uint32_t lAddress) const {
    auto section = sections_.upper_bound(lAddress);
    if (section == sections_.begin()) throw Damaged();
    --section;
    return Rest(section->second, lAddress - section->first);
  }

 private:
  void ReadOptionalHeader(std::string_view sHeader) {
    const std::uint16_t nKind = U16(sHeader, 0);
    if (nKind != 0x10B && nKind != 0x20B) throw Damaged();
    const Offset nDirectories = nKind == 0x10B ? 96 : 112;
    if (U32(sHeader, nDirectories - 4) > ResourceDirectory)
      lResources_ = U32(sHeader, nDirectories + Offset{8} * ResourceDirectory);
  }

  void ReadSections(std::string_view sFile, Offset nTable, std::uint16_t nCount) {
    for (std::uint16_t nSection = 0; nSection < nCount; ++nSection) {
      const std::string_view sEntry = Part(sFile, nTable + Offset{40} * nSection, 40);
      const std::uint32_t lLength = U32(sEntry, 16);
      const std::uint32_t lOffset = U32(sEntry, 20);
      if (lLength == 0 || lOffset == 0) continue;  // all zeroes, and so not in the file
      sections_.try_emplace(U32(sEntry, 12), Part(sFile, lOffset, lLength));
    }
  }

  std::uint32_t lResources_ = 0;
  std::map<std::uint32_t, std::string_view> sections_;  // by address
};

// Throws Damaged unless all strings of the block lie within it.
void CheckBlock(std::string_view sBlock) {
  Offset nString = 0;
  for (std::uint32_t lIndex = 0; lIndex < StringsPerBlock; ++lIndex)
    nString += 2 + Offset{2} * U16(sBlock, nString);
  Part(sBlock, 0, nString);
}

// The three levels of the resource tree, from the types down to the blocks.
// An id that stands twice in a directory counts the first time.
class StringTableReader {
 public:
  StringTableReader(const Image& image, std::string_view sResources)
      : image_(image), sResources_(sResources) {}

  std::map<std::uint32_t, std::string_view> Read() {
    for (const Entry& type : Entries(0))
      if (type.lId == StringTableType) ReadBlocks(Subdirectory(type));
    return std::move(blocks_);
  }

 private:
  struct Entry {
    std::uint32_t lId;
    std::uint32_t lOffset;
  };

  // The entries of the directory at an offset, without the named ones.
  std::vector<Entry> Entries(std::uint32_t lDirectory) {
    const std::uint16_t nNamed = U16(sResources_, Offset{lDirectory} + 12);
    const std::uint16_t nIds = U16(sResources_, Offset{lDirectory} + 14);
    if (nIds > lEntriesLeft_) throw Damaged();
    lEntriesLeft_ -= nIds;

    const std::string_view sEntries =
        Part(sResources_, Offset{lDirectory} + 16 + Offset{8} * nNamed, Offset{8} * nIds);
    std::vector<Entry> entries;
    for (Offset nEntry = 0; nEntry < sEntries.size(); nEntry += 8)
      entries.push_back({U32(sEntries, nEntry), U32(sEntries, nEntry + 4)});
    return entries;
  }

  static std::uint32_t Subdirectory(const Entry& entry) {
    if ((entry.lOffset & SubdirectoryBit) == 0) throw Damaged();
    return entry.lOffset & ~SubdirectoryBit;
  }

  void ReadBlocks(std::uint32_t lDirectory) {
    for (const Entry& block : Entries(lDirectory)) {
      blocks_.try_emplace(block.lId, ReadLanguages(Subdirectory(block)));
    }
  }

  // Checks a block in all its languages and returns it in the best one. Without any
  // it is damaged: Windows takes the first without a look at their number.
  std::string_view ReadLanguages(std::uint32_t lDirectory) {
    std::string_view sBest;
    int nBestRank = 0;
    for (const Entry& language : Entries(lDirectory)) {
      const std::string_view sBlock = ReadData(language);
      const int nRank = Rank(language.lId);
      if (nRank <= nBestRank) continue;
      sBest = sBlock;
      nBestRank = nRank;
    }
    if (nBestRank == 0) throw Damaged();
    return sBest;
  }

  static int Rank(std::uint32_t lLanguage) {
    if (lLanguage == EnglishUnitedStates) return 3;
    return lLanguage == NeutralLanguage ? 2 : 1;
  }

  std::string_view ReadData(const Entry& entry) const {
    if ((entry.lOffset & SubdirectoryBit) != 0) throw Damaged();
    const std::uint32_t lAddress = U32(sResources_, entry.lOffset);
    const std::uint32_t lLength = U32(sResources_, Offset{entry.lOffset} + 4);
    const std::string_view sBlock = Part(image_.FromAddress(lAddress), 0, lLength);
    CheckBlock(sBlock);
    return sBlock;
  }

  const Image& image_;
  std::string_view sResources_;
  std::uint32_t lEntriesLeft_ = MaxEntries;
  std::map<std::uint32_t, std::string_view> blocks_;
};

std::map<std::uint32_t, std::string_view> ReadStringTable(std::string_view sFile) {
  const Image image(sFile);
  const std::optional<std::string_view> sResources = image.Resources();
  if (!sResources) return {};
  return StringTableReader(image, *sResources).Read();
}

}  // namespace

std::optional<PeStringTable> PeStringTable::Parse(std::string sFile) {
  try {
    return PeStringTable(std::move(sFile));
  } catch (const Damaged&) {
    return std::nullopt;
  }
}

PeStringTable::PeStringTable(std::string sFile) : sFile_(std::move(sFile)) {
  for (const auto& [lId, sBlock] : ReadStringTable(sFile_)) {
    const auto nOffset = static_cast<std::size_t>(sBlock.data() - sFile_.data());
    blocks_[lId] = {nOffset, sBlock.size()};
  }
}

std::u16string PeStringTable::Text(std::uint16_t nId) const {
  const auto block = blocks_.find(nId / StringsPerBlock + 1U);
  if (block == blocks_.end()) return {};

  const std::string_view sBlock = Part(sFile_, block->second.nOffset, block->second.nLength);
  Offset nString = 0;
  for (std::uint32_t lBefore = nId % StringsPerBlock; lBefore > 0; --lBefore)
    nString += 2 + Offset{2} * U16(sBlock, nString);

  std::u16string sText(U16(sBlock, nString), u'\0');
  for (char16_t& c : sText) c = U16(sBlock, nString += 2);
  return sText;
}

}  // namespace trelin
