// A program without the launcher's care: it loads the libraries that its
// command line names as a program does by default.

#include <windows.h>

int main(int nArguments, char** arguments) {
  for (int i = 1; i < nArguments; ++i) LoadLibraryA(arguments[i]);
}
