#pragma once

// The system's headers in the order in which they can stand. Every file that needs one of them includes this.
#include <windows.h>

#include <commctrl.h>
#include <docobj.h>
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>
