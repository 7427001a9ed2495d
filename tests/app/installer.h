#pragma once

namespace trelin {

// The test program is also an installer: with the arguments "install" and a
// folder it does an installer's work, and nothing else. Returns whether it did.
bool ActAsInstaller(int argc, char** argv);

}  // namespace trelin
