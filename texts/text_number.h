#pragma once

#include <array>
#include <cstdint>

namespace trelin {

// The numbers of the texts in the string libraries, and what their placeholders
// stand for. What each text is for, strings/enu35000.rc says.
enum class TextNumber : std::int32_t {
  Missing = 35000,            // any text that its library lacks; %0% the number
  KeyNotOpened = 35001,       // %0% the registry key
  KeyNotCreated = 35002,      // %0% the registry key
  ValueNotWritten = 35003,    // %0% the value's name
  BlockInDependency = 35005,  // %0% the line, %1% the type of the block in it
  LineNotUnderstood = 35008,  // %0% the line
  SetupListTitle = 35009,     // source and title of what is wrong with the setup list
  WrongBlock = 35010,   // %0% "BLOCK", %1% the line, %2% the type expected, %3% the type found
  NoBeginning = 35011,  // %0% the line
  AfterTheEnd = 35012,  // %0% the line
  UnknownKey = 35013,   // %0% the menu's caption, %1% the key
  MenuCaption = 35014,  // also the title of the menu's messages
  NotInstalled = 35015,
  Installed = 35016,
  OlderInstalled = 35017,
  NewerInstalled = 35018,
  ExitButton = 35024,
  SetupButton = 35027,
  ReadMeButton = 35028,
  NoInstaller = 35029,
  InstallOverNewer = 35030,  // a question
  UnmetTitle = 35031,        // of the messages below
  Incomplete = 35032,        // the product's check file is missing
  NoLog = 35035,             // %0% the prerequisite's title
  NoRevision = 35036,        // %0% the prerequisite's title
  RevisionTooLow = 35037,    // %0% the revision required, %1% the title, %2% the revision installed
  CheckFileMissing = 35038,  // %0% the prerequisite's title
  NoCheckFile = 35039,       // %0% the prerequisite's title
  NoticeCount = 35040,       // how many lines the notice has; they follow it
};

// A row's states, and the captions of the menu's buttons.
inline constexpr std::array StateTexts = {TextNumber::NotInstalled, TextNumber::Installed,
                                          TextNumber::OlderInstalled, TextNumber::NewerInstalled,
                                          TextNumber::Incomplete};
inline constexpr std::array ButtonTexts = {TextNumber::ExitButton, TextNumber::SetupButton,
                                           TextNumber::ReadMeButton};

}  // namespace trelin
