#include <QGuiApplication>
#include <array>
#include <exception>
#include <string>
#include <vector>

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/code_page.h"
#include "shared/memory_registry.h"
#include "systems/host/host_string_library.h"
#include "systems/host/host_system.h"

namespace trelin {

namespace {

// Qt warns of what it misses of a desktop, which is nothing to the user of a terminal.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                 const QString& /*message*/) {}

// Texts are measured by Qt, which needs neither a display nor the arguments.
QGuiApplication& WithoutDisplay() {
  qInstallMessageHandler(DropMessage);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static std::array<char, 1> name{};
  static std::array<char*, 2> argv = {name.data(), nullptr};
  static QGuiApplication application(argc, argv.data());
  return application;
}

std::string Argument(const char* pArgument) {
  std::string sArgument = FromUtf8(pArgument);
  if (ToUtf8(sArgument) != pArgument)
    throw PlatformError("use the argument", sArgument,
                        "it holds characters that the program cannot use");
  return sArgument;
}

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  try {
    trelin::HostSystem system(argc, argv);
    trelin::MemoryRegistry registry;
    trelin::HostStringLibraryLoader libraries;
    const trelin::PlatformScope scope({&registry, &libraries, &system});
    trelin::WithoutDisplay();

    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(trelin::Argument(argv[i]));
    return trelin::RunCommand(arguments);
  } catch (const std::exception& error) {
    try {
      trelin::WriteErrorOutput(trelin::ToUtf8(error.what()) + "\n");
    } catch (const std::exception&) {
      return trelin::FailureCode;  // there is nowhere to write
    }
    return trelin::FailureCode;
  }
}
