#include <exception>
#include <iostream>
#include <string>

#include "seam/entry.h"
#include "seam/platform.h"
#include "shared/code_page.h"
#include "systems/host/file_registry.h"
#include "systems/host/host_string_library.h"
#include "systems/host/host_system.h"
#include "systems/host/toolkit_setup.h"

namespace trelin {

namespace {

std::string sProgramName;

std::string NameOf(const std::string& sProgram) {
  return FromUtf8(sProgram.substr(sProgram.rfind('/') + 1));
}

}  // namespace

int& ExitCode() {
  static int nExitCode = 0;
  return nExitCode;
}

std::string ProgramName() { return sProgramName; }

}  // namespace trelin

int main(int argc, char** argv) {
  try {
    trelin::HostSystem system(argc, argv);  // before Qt takes its own options away
    trelin::sProgramName = trelin::NameOf(argc > 0 ? argv[0] : "");
    const auto application = trelin::MakeApplication(argc, argv);

    trelin::FileRegistry registry(trelin::FileRegistry::DefaultPath());
    trelin::HostStringLibraryLoader libraries;
    const trelin::PlatformScope scope({&registry, &libraries, &system});
    trelin::Main();
    return trelin::ExitCode();
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
}
