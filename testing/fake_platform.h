#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "seam/platform.h"
#include "shared/memory_registry.h"

namespace trelin {

// The calls that a platform of the tests is asked, which of them fails, and
// how.
class Faults {
 public:
  // The kinds of failure.
  static constexpr char Result = 'R';    // the result that means failure
  static constexpr char Broken = 'B';    // a PlatformError, or RegistryUnusable
  static constexpr char NoMemory = 'M';  // std::bad_alloc

  // What fails after the first call that does.
  enum class Reach { Nothing, Everything };

  struct Call {
    std::string sOperation, sArgument;
    std::string sKinds;   // of failure that its header allows
    std::size_t nLogged;  // how much the log held by then
    std::string Text() const { return sOperation + " " + sArgument; }
  };

  // Whether the call that is being made fails with its result. Throws when it
  // fails in another way.
  bool Fails(const char* pOperation, const std::string& sArgument, const std::string& sKinds);

  bool bCounts = true;       // else nothing fails, and no call is kept
  std::size_t nFailing = 0;  // the first call to fail, from 1; 0: none
  char cKind = Result;
  Reach reach = Reach::Nothing;

  std::vector<Call> calls;
  std::string log;                               // what the user has seen and heard, in lines
  std::size_t nSecondFault = std::string::npos;  // how much the log held by then
};

// Of its operations, those fail that the program calls.
class FakeRegistry : public MemoryRegistry {
 public:
  explicit FakeRegistry(Faults& faults) : faults_(faults) {}

  std::int32_t OpenKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                       RegistryKey& hKey) override;
  std::int32_t CreateKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                         RegistryKey& hKey) override;
  std::int32_t CloseKey(RegistryKey hKey) noexcept override;
  std::int32_t QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                          std::uint32_t& lSize) override;
  std::int32_t SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                        const char* pData, std::uint32_t lSize) override;
  std::int32_t DeleteValue(RegistryKey hKey, const std::string& sName) override;
  std::string Trouble() const override { return sTrouble_; }

 private:
  std::optional<std::int32_t> Fault(const char* pOperation, const std::string& sArgument,
                                    std::int32_t lRefused);

  Faults& faults_;
  std::string sTrouble_;
};

// Libraries by their full path. A text is what the maps hold.
class FakeLibraries : public StringLibraryLoader {
 public:
  using Texts = std::map<std::int32_t, std::string>;

  explicit FakeLibraries(Faults& faults) : faults_(faults) {}

  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override;
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

  std::map<std::string, Texts> files;
  Texts& Own() { return files["C:\\Suite\\ENU35000.DLL"]; }
  std::vector<std::string> loads;  // every path tried, in order
  int nOpen = 0;

 private:
  Faults& faults_;
  std::vector<Texts*> loaded_;
};

struct ShownMessage {
  std::string sText;
  MessageIcon icon;
  MessageButtons buttons;
  std::string sTitle;

  std::string Line() const;  // title, icon and buttons as one number, and text
  bool operator==(const ShownMessage&) const = default;
};
void PrintTo(const ShownMessage& message, std::ostream* os);

// A system whose files are texts in memory, read in small pieces; it records
// what it is asked to do.
class FakeSystem : public System {
 public:
  explicit FakeSystem(Faults& counted) : faults(counted) {}

  std::string ProgramFolder() override;
  std::string CommandLineText() override;
  void MakeUpperCase(std::span<char> text) override;
  std::unique_ptr<InputFile> OpenInput(const std::string& sPath) override;
  std::unique_ptr<FileSearch> Search(const std::string& sPath) override;
  void Beep() override;
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                            const std::string& sTitle) override;
  void StartProgram(const std::string& sLine) override;

  Faults& faults;
  std::string sProgramFolder = "C:\\Suite";
  std::string sCommandLine;
  std::map<std::string, std::string> files;
  std::size_t nPiece = 400;  // bytes that are read at once
  int nOpenFiles = 0;        // and searches
  int nBeeps = 0;
  std::vector<ShownMessage> messages;
  std::function<MessageAnswer()> onMessage;  // empty: answers Ok
  std::vector<std::string> started;
};

// What the operation throws: an error of the program's own as "5001 Source
// Description", the text of another one, or "none".
std::string Failure(const std::function<void()>& operation);

// The platform in use from its construction on, with lookups enabled, and the
// suite's string library beside the program: a text reads as its number and its
// arguments, "35010(BLOCK|3|APPLICATION|X)".
struct FakePlatform {
  FakePlatform();
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;

  // Writes a value of the installation log; an empty text removes it.
  void Record(const std::string& sName, const std::string& sText);

  Faults faults;
  FakeRegistry registry{faults};
  FakeLibraries libraries{faults};
  FakeSystem system{faults};
  const PlatformScope scope{{&registry, &libraries, &system}};
};

}  // namespace trelin
