#include "check/new_suite.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "seam/console.h"
#include "seam/platform_error.h"
#include "shared/start_paths.h"
#include "texts/paths.h"

namespace trelin {

namespace {

// "@" stands for the end of the names of command files.
constexpr std::string_view List = R"(; A suite to start from. Lines like this one are comments.
;
; Put your own products in the place of these two, and your installers in that of the
; command files, which only leave a file and a record. Then run
;
;   trelin-check
;
; in this folder: it says what is not right yet.
BLOCK SETUPLIST Suite
  ; Stands above the list of products.
  TITLE = Measuring Suite

  BLOCK APPLICATION Runtime
    ; The row of the menu: its name, a line below it, and 32 by 32 pixels.
    PRODUCT = Runtime
    DESCRIPTION = Install it first.
    IMAGE = picture.bmp
    ; Setup starts this program, without arguments.
    INSTALLFILE = runtime@
    ; What the installer writes into the registry, and the revision that it installs.
    PRODUCTCODE = RUNTIME
    REVISION = 1.0
  END

  BLOCK APPLICATION Viewer
    PRODUCT = Viewer
    DESCRIPTION = Shows measuring results.
    IMAGE = picture.bmp
    INSTALLFILE = viewer@
    PRODUCTCODE = VIEWER
    REVISION = 1.0

    ; Setup of the viewer asks for this product first, in this revision or a higher one.
    BLOCK DEPENDENCY Runtime
      PRODUCTCODE = RUNTIME
      REVISION = 1.0
      TITLE = Runtime
    END
  END
END
)";

constexpr std::string_view WindowsInstaller = R"(@echo off
rem Leaves one file and a record: the product code is this file's own name.
set "LOG=HKLM\SOFTWARE\Korvanta\InstallLog"
echo Installed >"%~dp0%~n0.txt"
reg add "%LOG%" /v %~n0CheckFile /d "%~dp0%~n0.txt" /f /reg:64 >nul
reg add "%LOG%" /v %~n0 /d 1.0 /f /reg:64 >nul
)";

constexpr std::string_view LinuxInstaller = R"sh(#!/bin/sh
# Leaves one file and a record: the product code is this file's own name.
registry=${TRELIN_REGISTRY:-${XDG_DATA_HOME:-$HOME/.local/share}/trelin/registry.reg}
folder=$(cd "$(dirname "$0")" && pwd)
name=$(basename "$0" .sh)
echo Installed >"$folder/$name.txt"
cat >>"$registry" <<EOF

[HKEY_LOCAL_MACHINE\SOFTWARE\Korvanta\InstallLog]
"${name}CheckFile"="$folder/$name.txt"
"$name"="1.0"
EOF
)sh";

struct NewFile {
  std::string sName, sBytes;
  bool bProgram = false;
};

void AppendNumber(std::string& sBytes, std::uint32_t lNumber, int nBytes) {
  for (int n = 0; n < nBytes; ++n) sBytes += static_cast<char>(lNumber >> (8 * n) & 0xFFU);
}

// Whether the picture, a dial with its hand, is drawn in a place.
bool IsDrawn(int x, int y) {
  const int nRight = 2 * x - 31, nUp = 2 * y - 31;  // from the middle, in half pixels
  const int nDistance = nRight * nRight + nUp * nUp;
  const bool bRim = nDistance <= 29 * 29 && nDistance >= 24 * 24;
  const bool bHand = nRight - nUp >= -3 && nRight - nUp <= 3 && nRight >= 0 && nRight <= 13;
  return bRim || bHand;
}

// A BMP file of 32 by 32 pixels, blue on the grey that lets the menu through.
std::string Picture() {
  constexpr std::uint32_t HeaderBytes = 62, RowBytes = 4, Size = 32;
  std::string sBytes = "BM";
  for (const std::uint32_t l : {HeaderBytes + Size * RowBytes, 0U, HeaderBytes, 40U, Size, Size})
    AppendNumber(sBytes, l, 4);
  for (const std::uint32_t l : {1U, 1U}) AppendNumber(sBytes, l, 2);  // planes, bits a pixel
  for (const std::uint32_t l : {0U, Size * RowBytes, 0U, 0U, 2U, 0U}) AppendNumber(sBytes, l, 4);
  for (const std::uint32_t lColor : {0x00C0C0C0U, 0x00004080U}) AppendNumber(sBytes, lColor, 4);
  for (int y = 0; y < static_cast<int>(Size); ++y) {  // from the bottom
    std::uint32_t lRow = 0;
    for (int x = 0; x < static_cast<int>(Size); ++x)
      lRow |= IsDrawn(x, y) ? 1U << (x / 8 * 8 + 7 - x % 8) : 0U;
    AppendNumber(sBytes, lRow, 4);
  }
  return sBytes;
}

std::string WithCommandEnds(std::string_view sText) {
  std::string sFilled;
  for (const char c : sText) sFilled += c == '@' ? CommandFileEnd() : std::string(1, c);
  return sFilled;
}

std::string WithWindowsLineEnds(std::string_view sText) {
  std::string sEnded;
  for (const char c : sText) sEnded += c == '\n' ? "\r\n" : std::string(1, c);
  return sEnded;
}

std::vector<NewFile> FilesOfSuite() {
  const bool bWindows = CommandFileEnd() == ".cmd";
  const std::string sInstaller =
      bWindows ? WithWindowsLineEnds(WindowsInstaller) : std::string(LinuxInstaller);
  return {{"TRELIN.CFG", WithWindowsLineEnds(WithCommandEnds(List))},
          {"picture.bmp", Picture()},
          {"runtime" + CommandFileEnd(), sInstaller, true},
          {"viewer" + CommandFileEnd(), sInstaller, true}};
}

}  // namespace

void WriteNewSuite(const std::string& sFolder) {
  MakeFolder(sFolder);
  const std::vector<NewFile> files = FilesOfSuite();
  for (const NewFile& file : files)
    if (const std::string sPath = InFolder(sFolder, file.sName); StartPathTests().isFile(sPath))
      throw PlatformError("make a new suite with the file", WrittenByUser(sPath),
                          "there is one already");
  for (const NewFile& file : files)
    WriteNewFile(InFolder(sFolder, file.sName), file.sBytes, file.bProgram);
}

}  // namespace trelin
