// The value by which functions with buffers know that their stack was overrun. The
// compiler's own library asks a provider of cryptography for it, which takes three
// libraries more at the start of the program; one call of the system does as well.

#include <windows.h>
#include <ntsecapi.h>

#include <cstdint>

extern "C" {

std::uintptr_t __stack_chk_guard = 0x0AFF0D00;  // line ends and a NUL stop what copies texts

// Nothing of the program runs any more, as its stack cannot be trusted.
[[noreturn]] void __stack_chk_fail() { __builtin_trap(); }

}  // extern "C"

namespace {

// Before any other function of the program.
[[gnu::constructor(101)]] void MakeGuard() {
  std::uintptr_t guard = 0;
  if (RtlGenRandom(&guard, sizeof guard)) __stack_chk_guard = guard;
}

}  // namespace
