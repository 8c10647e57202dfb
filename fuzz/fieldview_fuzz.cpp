// A FieldView restart of any text: what it shows is a display file that reads back.
#include "modules/plot3d/fieldview/fieldviewdisplay.h"
#include "modules/plot3d/fieldview/fieldviewtext.h"

#include <cstdlib>

extern "C" const char* __lsan_default_suppressions() { return "leak:libQt5Core"; }

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    SFieldViewRestart restart;
    ReadFieldViewText(QString::fromUtf8(reinterpret_cast<const char*>(pData), int(nSize)), restart);
    SDisplayDocument document;
    if (document.FromBytes(ToDisplayDocument(restart).ToBytes()) != StoredOk)
        std::abort();
    return 0;
}
