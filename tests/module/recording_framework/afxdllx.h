// The framework's header for extension modules. The stand-in has all it needs in afxwin.h.
#include <afxwin.h>
