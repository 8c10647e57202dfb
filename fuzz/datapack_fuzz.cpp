// Whatever the bytes, reading a pack or a property sheet must end without harm. What was read, whole or in
// part, is a pack like any other: its own bytes read back, and give the same bytes again.
#include "frame/packs/datapropertypack.h"

#include <cstdlib>

namespace {
constexpr double VERSION = -1.0;

/** A sheet with two rows that the corpus has values for. */
CDataPropertyPack MakeSheet()
{
    CDataPropertyPack sheet;
    sheet.AddProperty({"Range", "Level", "Level", PropertySlider, 0.5});
    sheet.AddProperty({"Look", "Visible", "Visible", PropertyCheckBox, true});
    return sheet;
}

template <class Pack> void CheckReading(Pack pack, Pack again, const QByteArray& input)
{
    pack.FromBytes(input, VERSION);
    const QByteArray bytes = pack.ToBytes();
    if (!again.FromBytes(bytes, VERSION) || again.ToBytes() != bytes)
        std::abort();
    if (pack.IsEmpty() != again.IsEmpty() || Pack(again).ToBytes() != bytes)
        std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    const QByteArray input(reinterpret_cast<const char*>(pData),
                           int(nSize)); // a copy, so that overruns are seen
    CheckReading(CDataPack(), CDataPack(), input);
    CheckReading(MakeSheet(), MakeSheet(), input);
    return 0;
}
