#include "systems/host/host_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "shared/code_page.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

class HostFile : public InputFile {
 public:
  HostFile(FileDescriptor file, std::string sHostPath)
      : file_(std::move(file)), sHostPath_(std::move(sHostPath)) {}

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    ssize_t nRead = 0;
    do {
      nRead = read(file_.Get(), pBuffer, nSize);
    } while (nRead < 0 && errno == EINTR);
    if (nRead < 0) throw HostError("read the file", sHostPath_, errno);
    return static_cast<std::size_t>(nRead);
  }

 private:
  FileDescriptor file_;
  std::string sHostPath_;
};

FileDescriptor OpenForReading(const std::string& sHostPath, int nMoreFlags) {
  int hFile = -1;
  do {
    hFile = open(sHostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | nMoreFlags);
  } while (hFile < 0 && errno == EINTR);
  return FileDescriptor(hFile);
}

// A path that was tried last, and why it failed, an errno value.
struct Tried {
  std::string sHostPath;
  int lReason;  // 0: it did not fail
};

// Tries sPath as it is written, which most files are, and then in the letter case of
// what is there. attempt takes a path of this system and is true unless errno says why.
template <class Attempt>
Tried TryInAnyCase(std::string_view sPath, const Attempt& attempt) {
  std::string sWritten = WrittenPath(sPath);
  if (attempt(sWritten)) return {std::move(sWritten), 0};
  const int lReason = errno;
  std::string sOther = PathInOtherCase(sWritten);
  if (sOther == sWritten) return {std::move(sWritten), lReason};
  const bool bDone = attempt(sOther);
  return {std::move(sOther), bDone ? 0 : errno};
}

bool MatchesPattern(const std::string& sName, const std::string& sPattern) {
  std::size_t nName = 0;
  std::size_t nPattern = 0;
  std::size_t nStar = std::string::npos;  // the last * so far
  std::size_t nStarEnd = 0;               // what it stands for ends here
  while (nName < sName.size()) {
    const char cPattern = nPattern < sPattern.size() ? sPattern[nPattern] : '\0';
    if (cPattern == '*') {
      nStar = nPattern++;
      nStarEnd = nName;
    } else if (cPattern == '?' || cPattern == sName[nName]) {
      ++nPattern;
      ++nName;
    } else if (nStar != std::string::npos) {
      nPattern = nStar + 1;
      nName = ++nStarEnd;
    } else {
      return false;
    }
  }
  return sPattern.find_first_not_of('*', nPattern) == std::string::npos;
}

bool MatchesName(const std::string& sName, const std::string& sPattern) {
  const auto hasDot = [](const std::string& s) { return s.find('.') != std::string::npos; };
  if (MatchesPattern(sName, sPattern)) return true;
  return hasDot(sPattern) && !hasDot(sName) && MatchesPattern(sName + '.', sPattern);
}

struct CloseFolder {
  void operator()(DIR* pFolder) const { closedir(pFolder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

class HostSearch : public FileSearch {
 public:
  // Without a folder nothing is found.
  HostSearch(Folder folder, std::string sFolder, const std::string& sPattern)
      : folder_(std::move(folder)),
        sFolder_(std::move(sFolder)),
        sPattern_(UpperCase1252(sPattern)) {}

  std::optional<std::string> Next() override {
    while (folder_ != nullptr) {
      errno = 0;
      const dirent* pEntry = readdir(folder_.get());
      if (pEntry == nullptr) {
        End(errno);
      } else if (Matches(pEntry->d_name)) {
        return FromUtf8(pEntry->d_name);
      }
    }
    return std::nullopt;
  }

 private:
  bool Matches(const char* pEntry) const {
    if (pEntry[0] == '.' || !MatchesName(UpperCase1252(FromUtf8(pEntry)), sPattern_)) return false;
    struct stat status = {};
    return fstatat(dirfd(folder_.get()), pEntry, &status, 0) == 0 && S_ISREG(status.st_mode);
  }

  void End(int lReason) {
    folder_.reset();
    if (lReason != 0) throw HostError("read the folder", sFolder_, lReason);
  }

  Folder folder_;
  std::string sFolder_;
  std::string sPattern_;
};

// Finds its one name once.
class OneFileSearch : public FileSearch {
 public:
  explicit OneFileSearch(std::optional<std::string> sName) : sName_(std::move(sName)) {}
  std::optional<std::string> Next() override { return std::exchange(sName_, std::nullopt); }

 private:
  std::optional<std::string> sName_;
};

// The file's name when it is one that a search finds.
std::optional<std::string> FindNormalFile(std::string_view sPath) {
  struct stat status = {};
  const auto sHostPath = StatInAnyCase(sPath, status);
  if (!sHostPath || !S_ISREG(status.st_mode)) return std::nullopt;
  const std::string_view sName = std::string_view(*sHostPath).substr(sHostPath->rfind('/') + 1);
  if (sName.starts_with('.')) return std::nullopt;
  return FromUtf8(sName);
}

// No folder when there is none of that name.
Folder OpenFolder(const std::string& sHostPath) {
  Folder folder(opendir(sHostPath.c_str()));
  if (folder == nullptr && errno != ENOENT && errno != ENOTDIR) {
    throw HostError("read the folder", sHostPath, errno);
  }
  return folder;
}

// sPath as Windows searches for it.
std::string_view WithoutSpacesAndDots(std::string_view sPath) {
  return sPath.substr(0, sPath.find_last_not_of(" .") + 1);
}

bool HasWildcard(std::string_view sPath) {
  return sPath.find('*') != std::string_view::npos || sPath.find('?') != std::string_view::npos;
}

}  // namespace

void FileDescriptor::Close() {
  if (hFile_ >= 0) close(std::exchange(hFile_, -1));
}

bool WriteAll(int hFile, std::string_view sBytes) {
  while (!sBytes.empty()) {
    const ssize_t nWritten = write(hFile, sBytes.data(), sBytes.size());
    if (nWritten < 0 && errno != EINTR) return false;
    if (nWritten > 0) sBytes.remove_prefix(static_cast<std::size_t>(nWritten));
  }
  return true;
}

std::optional<std::string> StatInAnyCase(std::string_view sPath, struct stat& status) {
  Tried tried = TryInAnyCase(
      sPath, [&status](const std::string& sTried) { return stat(sTried.c_str(), &status) == 0; });
  if (tried.lReason != 0) return std::nullopt;
  return std::move(tried.sHostPath);
}

std::unique_ptr<InputFile> OpenHostFile(const std::string& sPath, HostFileKinds kinds) {
  const char* const pOperation = "open the file";
  RefuseNul(pOperation, sPath);
  const bool bAny = kinds == HostFileKinds::Any;
  FileDescriptor file;
  struct stat status = {};
  const auto [sHostPath, lReason] = TryInAnyCase(sPath, [&](const std::string& sTried) {
    file = OpenForReading(sTried, bAny ? 0 : O_NONBLOCK);  // which waits for no writer of a pipe
    return file.Get() >= 0 && fstat(file.Get(), &status) == 0;
  });
  if (lReason != 0) throw HostError(pOperation, sHostPath, lReason);
  if (S_ISDIR(status.st_mode)) throw HostError(pOperation, sHostPath, EISDIR);
  if (!bAny && !S_ISREG(status.st_mode)) throw HostError(pOperation, sHostPath, EINVAL);
  return std::make_unique<HostFile>(std::move(file), sHostPath);
}

std::unique_ptr<InputFile> OpenHostStandardInput() {
  FileDescriptor file(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
  if (file.Get() < 0) throw HostError("open", "the standard input", errno);
  return std::make_unique<HostFile>(std::move(file), "the standard input");
}

std::unique_ptr<FileSearch> SearchHostFiles(const std::string& sGiven) {
  RefuseNul("search for the file", sGiven);
  const std::string_view sTaken = WithoutSpacesAndDots(sGiven);
  if (!HasWildcard(sTaken)) return std::make_unique<OneFileSearch>(FindNormalFile(sTaken));
  std::string sPath(sTaken);
  if (sTaken.ends_with('*') && sGiven.ends_with('.')) sPath += '.';  // which counts
  const std::size_t nName = sPath.find_last_of("\\/") + 1;           // 0 without a separator
  const std::string sPattern = sPath.substr(nName);
  const std::string sFolder = nName == 0 ? "." : HostPath(sPath.substr(0, nName));
  Folder folder = sPattern.empty() ? nullptr : OpenFolder(sFolder);
  return std::make_unique<HostSearch>(std::move(folder), sFolder, sPattern);
}

}  // namespace trelin
