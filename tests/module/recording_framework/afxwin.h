#ifndef ALIDADE_TESTS_MODULE_RECORDING_FRAMEWORK_AFXWIN_H
#define ALIDADE_TESTS_MODULE_RECORDING_FRAMEWORK_AFXWIN_H

// What the library uses of the host's framework, by the framework's names, and nothing else. The functions do nothing
// but write down that they were called.

#include <string>
#include <vector>

using BOOL = int;
using DWORD = unsigned int;
using LONG = int;
using LPVOID = void*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;

#define APIENTRY
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

struct tagPOINT {
  LONG x;
  LONG y;
};

class CPoint : public tagPOINT {
public:
  CPoint() : tagPOINT{0, 0} {}
  CPoint(int px, int py) : tagPOINT{px, py} {}
};

struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};

class CRect : public tagRECT {
public:
  CRect() : tagRECT{0, 0, 0, 0} {}
  CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
};

struct AFX_EXTENSION_MODULE {
  BOOL bInitialized;
  HMODULE hModule;
};

class CDynLinkLibrary {
public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = 0);
};

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = 0);

// For the test.
namespace recording_framework {

struct Call {
  std::string name;
  const AFX_EXTENSION_MODULE* state;
  HMODULE module;  // of AfxInitExtensionModule, else null
};

extern std::vector<Call> calls;
extern BOOL answer_to_init;

}  // namespace recording_framework

#endif
