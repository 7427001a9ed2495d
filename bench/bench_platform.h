#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "seam/platform.h"
#include "systems/host/file_registry.h"
#include "systems/host/host_string_library.h"
#include "systems/host/host_system.h"

namespace trelin {

// A folder of the benchmark's own, removed at the end, or one that is there and stays.
class BenchFolder {
 public:
  BenchFolder();
  explicit BenchFolder(std::filesystem::path path) : path_(std::move(path)) {}
  ~BenchFolder();
  BenchFolder(const BenchFolder&) = delete;

  std::string operator/(const std::string& sName) const { return (path_ / sName).string(); }
  void Write(const std::string& sName, const std::string& sText) const;

 private:
  std::filesystem::path path_;
  bool bOwn_ = false;
};

// The program's own implementations for this system, as its main sets them up,
// in a folder with the built string library and an empty registry file, or in a folder
// that has both.
class BenchPlatform {
 public:
  BenchPlatform();
  explicit BenchPlatform(std::filesystem::path suite);

  const BenchFolder folder;
  FileRegistry registry{folder / "registry.reg"};

  std::string ProgramFolder() { return system_.ProgramFolder(); }
  void WriteRegistry(const std::string& sText) const { folder.Write("registry.reg", sText); }

 private:
  class BenchSystem : public HostSystem {
   public:
    explicit BenchSystem(std::string sFolder)
        : HostSystem(0, nullptr), sFolder_(std::move(sFolder)) {}
    std::string ProgramFolder() override { return sFolder_; }

   private:
    std::string sFolder_;
  };

  BenchSystem system_;
  HostStringLibraryLoader libraries_;
  const PlatformScope scope_{{&registry, &libraries_, &system_}};
};

}  // namespace trelin
