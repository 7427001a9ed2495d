// A library that tells that it has been loaded: it leaves the file NAME.mark
// beside itself.

#include <windows.h>

#include <string>

BOOL WINAPI DllMain(HINSTANCE hSelf, DWORD lReason, LPVOID) {
  if (lReason != DLL_PROCESS_ATTACH) return TRUE;
  std::string sPath(MAX_PATH, '\0');
  sPath.resize(GetModuleFileNameA(hSelf, sPath.data(), MAX_PATH));
  sPath += ".mark";
  const HANDLE hMark =
      CreateFileA(sPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (hMark != INVALID_HANDLE_VALUE) CloseHandle(hMark);
  return TRUE;
}
