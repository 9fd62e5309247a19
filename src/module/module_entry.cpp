// The library as an extension module of the host's application framework: Windows calls DllMain when a process or a
// thread comes or goes. Compiled only where the framework is at hand (ALIDADE_WITH_MFC).

#include <afxdllx.h>
#include <afxwin.h>

#include "strict_arithmetic.h"

namespace {

AFX_EXTENSION_MODULE extension_module;

}  // namespace

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (!AfxInitExtensionModule(extension_module, instance)) {
      return 0;  // Windows then refuses to load the library
    }
    new CDynLinkLibrary(extension_module);  // enters itself into the framework's list, which owns it from here on
  } else if (reason == DLL_PROCESS_DETACH) {
    AfxTermExtensionModule(extension_module);
  }
  return 1;
}
