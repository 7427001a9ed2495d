#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace trelin {

// A file open for reading from start to end; closed when destroyed.
class InputFile {
 public:
  virtual ~InputFile() = default;

  // Reads up to nSize bytes and returns how many it read; 0 at the end of the
  // file. Throws PlatformError when the file cannot be read.
  virtual std::size_t Read(char* pBuffer, std::size_t nSize) = 0;
};

// A directory search; ended when destroyed.
class FileSearch {
 public:
  virtual ~FileSearch() = default;

  // The next name (without its folder), or nothing after the last one.
  // Throws PlatformError when the folder cannot be read.
  virtual std::optional<std::string> Next() = 0;
};

// The values are those of the Windows message box styles and answers.
enum class MessageIcon { None = 0, Critical = 16, Exclamation = 48, Information = 64 };
enum class MessageButtons { Ok = 0, YesNo = 4 };
enum class MessageAnswer { Ok = 1, Yes = 6, No = 7 };

// The rest of what the program needs of the system it runs on. Texts and
// paths are in the ANSI code page; paths have backslashes and name a file in
// any letter case. What fails throws PlatformError, and only where it is said
// below; every operation may throw std::bad_alloc.
class System {
 public:
  virtual ~System() = default;

  // The folder that holds the program's executable, without a backslash at
  // its end unless it is the root of a drive. Throws PlatformError when the code
  // page lacks a character of it, or when it is longer than the system takes.
  virtual std::string ProgramFolder() = 0;

  // What stands on the command line after the program's own name, as it is.
  // Throws PlatformError when the code page lacks a character of it.
  virtual std::string CommandLineText() = 0;

  // Turns the text into upper case, where it lies, by the rules of the ANSI
  // code page.
  virtual void MakeUpperCase(std::span<char> text) = 0;

  // Opens sPath for reading. Throws PlatformError when it does not open, as for a
  // folder.
  virtual std::unique_ptr<InputFile> OpenInput(const std::string& sPath) = 0;

  // Searches for the normal files that sPath names; its last component may
  // hold the wildcards * and ?. Hidden files, system files and folders do not
  // match. Throws PlatformError for a path that cannot be searched; a folder
  // that does not exist holds no files.
  virtual std::unique_ptr<FileSearch> Search(const std::string& sPath) = 0;

  // The system's default sound.
  virtual void Beep() = 0;

  // Shows a message box, owned by the window that is in use, and waits for
  // the answer. A box closed in another way answers Ok, or No when it asks. An
  // empty title stands for the name of the program.
  virtual MessageAnswer ShowMessage(const std::string& sText, MessageIcon icon,
                                    MessageButtons buttons, const std::string& sTitle) = 0;

  // Starts the program that sCommandLine names, with a normal window that
  // gets the focus, and returns without waiting for it. A program path in
  // double quotes ends at the closing quote; without quotes it is the longest
  // leading part, up to a space or the end, that names a file and is not cut
  // from the name of a folder. The rest are its arguments. Throws PlatformError
  // when the program cannot be started or its path is not a full one: in the
  // current folder nobody looks for it.
  virtual void StartProgram(const std::string& sCommandLine) = 0;
};

}  // namespace trelin
