// The standard library's threads of the win32 model, which GCC has since version 13, want Windows Vista: with Windows XP
// as the target its headers do not compile, unless they take it that there are none.
#ifdef __cplusplus
#include <bits/c++config.h>
#undef _GLIBCXX_HAS_GTHREADS
#endif
