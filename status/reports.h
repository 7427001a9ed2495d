#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "status/workstation.h"

namespace trelin {

constexpr const char* StatusTool = "trelin-status";

// All that a report tells. Texts are in the ANSI code page; the reports are in UTF-8.
struct StatusReport {
  bool bExports = false;  // of workstations whose files could not be looked at
  std::vector<OfferedProduct> products;
  std::vector<Workstation> workstations;
  std::vector<std::string> failures;  // sentences about exports that cannot be read
  std::string sList;                  // the setup list, as the user writes its path
  std::string sListDigest;            // its SHA-256
  std::string sTime;                  // when this was found out
};

// A state as reports have it: for programs by name, for who sees no colours by sign.
struct ReportedState {
  ProductState state;
  const char* pName;
  const char* pSign;  // in UTF-8
};

// In the order in which they are listed.
inline constexpr std::array ReportedStates = {
    ReportedState{ProductState::Installed, "installed", "\u2713"},
    ReportedState{ProductState::Newer, "newer", "\u25B2"},
    ReportedState{ProductState::Older, "older", "\u25BC"},
    ReportedState{ProductState::Incomplete, "incomplete", "!"},
    ReportedState{ProductState::NotInstalled, "not-installed", "\u2013"},
};
const ReportedState& Reported(ProductState state);

// The menu's words for its state; of a file that nobody looked at with a word on that.
std::string WordsFor(const ProductStatus& status, bool bExport);

// Whether a check file is recorded and was looked at.
bool IsFileChecked(const ProductStatus& status, bool bExport);

// How many workstations have the product (from 0) in that state.
std::size_t CountOf(const StatusReport& report, std::size_t nProduct, ProductState state);

// Takes a report piece by piece, as one of thousands of workstations is long.
using Output = std::function<void(const std::string& sUtf8)>;

void WriteStatusText(const StatusReport& report, const Output& write);
void WriteStatusJson(const StatusReport& report, const Output& write);
void WriteStatusCsv(const StatusReport& report, const Output& write);
void WriteStatusHtml(const StatusReport& report, const Output& write);

}  // namespace trelin
