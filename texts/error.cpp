#include "texts/error.h"

#include <new>
#include <utility>

#include "seam/platform.h"

namespace trelin {

namespace {
constexpr const char* ProgramName = "Trelin";
}

Error::Error(std::int32_t lNumber, std::string sSource, std::string sDescription)
    : lNumber_(lNumber), sSource_(std::move(sSource)), sDescription_(std::move(sDescription)) {}

ErrorReport CurrentError() {
  try {
    throw;
  } catch (const Error& error) {
    return {error.Source(), error.Description()};
  } catch (const std::bad_alloc&) {
    return {ProgramName, "There is not enough memory to go on."};
  } catch (const std::exception& error) {
    return {ProgramName, error.what()};
  } catch (...) {
    return {ProgramName, "An error of an unknown kind has occurred."};
  }
}

namespace {

void Show(MessageIcon icon, const char* sTitleBegin) {
  try {
    const ErrorReport report = CurrentError();
    TheSystem().ShowMessage(report.sDescription, icon, MessageButtons::Ok,
                            sTitleBegin + report.sSource);
  } catch (...) {
    // The error could not even be shown; there is nobody left to tell.
    return;
  }
}

}  // namespace

void ShowError() { Show(MessageIcon::Information, "Error at "); }

void ShowFatalError() { Show(MessageIcon::Critical, ""); }

}  // namespace trelin
