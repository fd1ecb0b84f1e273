#include "com/text_data.h"

#include "base/module.h"
#include "base/text.h"

#include <cstring>
#include <gmock/gmock.h>
#include <vector>

namespace velk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FORMATETC asked(CLIPFORMAT format, DWORD tymed = TYMED_HGLOBAL)
{
    return {format, nullptr, DVASPECT_CONTENT, -1, tymed};
}

class TextDataTest : public testing::Test {
protected:
    // What a target gets; the answer stands in `answer`.
    std::string bytes(FORMATETC format)
    {
        STGMEDIUM medium;
        std::memset(&medium, 0xcc, sizeof medium);
        answer = data->GetData(&format, &medium);
        if (answer != S_OK) {
            EXPECT_EQ(medium.tymed, DWORD{TYMED_NULL});
            EXPECT_EQ(medium.hGlobal, nullptr);
            return {};
        }
        EXPECT_EQ(medium.tymed, DWORD{TYMED_HGLOBAL});
        EXPECT_EQ(medium.pUnkForRelease, nullptr);
        const std::string got(static_cast<const char*>(GlobalLock(medium.hGlobal)), GlobalSize(medium.hGlobal));
        GlobalUnlock(medium.hGlobal);
        ReleaseStgMedium(&medium);
        return got;
    }
    HRESULT refusal(FORMATETC format)
    {
        const HRESULT said = data->QueryGetData(&format);
        bytes(format);
        EXPECT_EQ(answer, said);
        return said;
    }
    static std::string bytesOf(const std::wstring& text)
    {
        return {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)};
    }
    std::vector<CLIPFORMAT> formats()
    {
        com_ptr<IEnumFORMATETC> all;
        EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, all.put()), S_OK);
        std::vector<CLIPFORMAT> found;
        for (FORMATETC format{}; all->Next(1, &format, nullptr) == S_OK;)
            found.push_back(format.cfFormat);
        return found;
    }

    const std::wstring text = L"sales.\u00fcber, \u6ce8\u6587";
    const com_ptr<IDataObject> data = makeTextData(text);
    HRESULT answer = S_OK;
};

TEST_F(TextDataTest, unicodeText_isTheTextWithItsNul)
{
    EXPECT_EQ(bytes(asked(CF_UNICODETEXT)), bytesOf(text));
}

TEST_F(TextDataTest, plainText_isInTheCodePageWithItsNul)
{
    const std::string ansi = toAnsi(text);
    EXPECT_EQ(bytes(asked(CF_TEXT)), std::string(ansi.c_str(), ansi.size() + 1));
}

TEST_F(TextDataTest, emptyText_isANul)
{
    EXPECT_EQ(makeTextData(L"")->QueryGetData(nullptr), E_INVALIDARG);
    const com_ptr<IDataObject> empty = makeTextData(L"");
    FORMATETC format = asked(CF_TEXT);
    STGMEDIUM medium{};
    ASSERT_EQ(empty->GetData(&format, &medium), S_OK);
    EXPECT_STREQ(static_cast<const char*>(GlobalLock(medium.hGlobal)), "");
    GlobalUnlock(medium.hGlobal);
    ReleaseStgMedium(&medium);
}

TEST_F(TextDataTest, eachTaker_getsMemoryOfItsOwn)
{
    FORMATETC format = asked(CF_UNICODETEXT);
    STGMEDIUM first{};
    STGMEDIUM second{};
    ASSERT_EQ(data->GetData(&format, &first), S_OK);
    ASSERT_EQ(data->GetData(&format, &second), S_OK);
    EXPECT_NE(first.hGlobal, second.hGlobal);
    ReleaseStgMedium(&first);
    EXPECT_EQ(bytes(format), bytesOf(text));
    ReleaseStgMedium(&second);
}

TEST_F(TextDataTest, askerThatTakesOtherMediaToo_getsMemory)
{
    EXPECT_EQ(bytes(asked(CF_UNICODETEXT, TYMED_ISTREAM | TYMED_HGLOBAL)), bytesOf(text));
}

TEST_F(TextDataTest, askerWithATargetDevice_getsTheSame)
{
    DVTARGETDEVICE device{};
    FORMATETC format = asked(CF_UNICODETEXT);
    format.ptd = &device;
    EXPECT_EQ(bytes(format), bytesOf(text));
}

TEST_F(TextDataTest, whatItIsNot_isRefusedByItsReason)
{
    EXPECT_EQ(refusal(asked(CF_OEMTEXT)), DV_E_FORMATETC);
    EXPECT_EQ(refusal(asked(CF_BITMAP)), DV_E_FORMATETC);
    EXPECT_EQ(refusal(asked(0)), DV_E_FORMATETC);
    EXPECT_EQ(refusal(asked(CF_TEXT, TYMED_ISTREAM)), DV_E_TYMED);
    EXPECT_EQ(refusal(asked(CF_TEXT, TYMED_NULL)), DV_E_TYMED);
    FORMATETC icon = asked(CF_TEXT);
    icon.dwAspect = DVASPECT_ICON;
    EXPECT_EQ(refusal(icon), DV_E_DVASPECT);
    FORMATETC piece = asked(CF_TEXT);
    piece.lindex = 0;
    EXPECT_EQ(refusal(piece), DV_E_LINDEX);
}

TEST_F(TextDataTest, whatItIs_isPromised)
{
    FORMATETC unicode = asked(CF_UNICODETEXT);
    FORMATETC plain = asked(CF_TEXT);
    EXPECT_EQ(data->QueryGetData(&unicode), S_OK);
    EXPECT_EQ(data->QueryGetData(&plain), S_OK);
}

TEST_F(TextDataTest, nullPointers_areRefused)
{
    FORMATETC format = asked(CF_TEXT);
    STGMEDIUM medium{};
    EXPECT_EQ(data->GetData(nullptr, &medium), E_INVALIDARG);
    EXPECT_EQ(data->GetData(&format, nullptr), E_INVALIDARG);
    EXPECT_EQ(data->GetDataHere(nullptr, &medium), E_INVALIDARG);
    EXPECT_EQ(data->GetDataHere(&format, nullptr), E_INVALIDARG);
    EXPECT_EQ(data->QueryGetData(nullptr), E_INVALIDARG);
    EXPECT_EQ(data->GetCanonicalFormatEtc(nullptr, &format), E_INVALIDARG);
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, nullptr), E_INVALIDARG);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, nullptr), E_INVALIDARG);
    EXPECT_EQ(data->QueryInterface(IID_IDataObject, nullptr), E_POINTER);
}

TEST_F(TextDataTest, memoryOfTheAskersOwn_isFilledWhenItIsLargeEnough)
{
    FORMATETC format = asked(CF_UNICODETEXT);
    STGMEDIUM medium{};
    medium.tymed = TYMED_HGLOBAL;
    medium.hGlobal = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 200);
    const HGLOBAL own = medium.hGlobal;
    EXPECT_EQ(data->GetDataHere(&format, &medium), S_OK);
    EXPECT_EQ(medium.hGlobal, own);
    EXPECT_EQ(static_cast<const wchar_t*>(GlobalLock(own)), text);
    GlobalUnlock(own);
    ReleaseStgMedium(&medium);
}

TEST_F(TextDataTest, memoryThatIsTooSmall_isLeftAlone)
{
    FORMATETC format = asked(CF_UNICODETEXT);
    STGMEDIUM medium{};
    medium.tymed = TYMED_HGLOBAL;
    medium.hGlobal = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 2);
    EXPECT_EQ(data->GetDataHere(&format, &medium), STG_E_MEDIUMFULL);
    EXPECT_EQ(*static_cast<const wchar_t*>(GlobalLock(medium.hGlobal)), L'\0');
    GlobalUnlock(medium.hGlobal);
    ReleaseStgMedium(&medium);
}

TEST_F(TextDataTest, otherMediaOfTheAskersOwn_areRefused)
{
    FORMATETC format = asked(CF_TEXT);
    STGMEDIUM medium{};
    EXPECT_EQ(data->GetDataHere(&format, &medium), DV_E_TYMED);
    medium.tymed = TYMED_ISTREAM;
    EXPECT_EQ(data->GetDataHere(&format, &medium), DV_E_TYMED);
    medium.tymed = TYMED_HGLOBAL;
    EXPECT_EQ(data->GetDataHere(&format, &medium), DV_E_TYMED);
    FORMATETC picture = asked(CF_BITMAP);
    EXPECT_EQ(data->GetDataHere(&picture, &medium), DV_E_FORMATETC);
}

TEST_F(TextDataTest, canonicalFormat_isTheFormatItself)
{
    FORMATETC format = asked(CF_TEXT);
    FORMATETC same{};
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &same), DATA_S_SAMEFORMATETC);
    EXPECT_EQ(same.cfFormat, CF_TEXT);
    EXPECT_EQ(same.tymed, DWORD{TYMED_HGLOBAL});
    EXPECT_EQ(same.ptd, nullptr);
}

TEST_F(TextDataTest, canonicalFormatOfADevice_isTheOneWithoutIt)
{
    DVTARGETDEVICE device{};
    FORMATETC format = asked(CF_TEXT);
    format.ptd = &device;
    FORMATETC same{};
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &same), S_OK);
    EXPECT_EQ(same.ptd, nullptr);
}

TEST_F(TextDataTest, canonicalFormatOfSomethingElse_isRefused)
{
    FORMATETC format = asked(CF_BITMAP);
    FORMATETC same = asked(CF_TEXT);
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &same), DV_E_FORMATETC);
    EXPECT_EQ(same.cfFormat, 0);
}

TEST_F(TextDataTest, formats_areUnicodeFirst)
{
    EXPECT_THAT(formats(), ElementsAre(CF_UNICODETEXT, CF_TEXT));
}

TEST_F(TextDataTest, formatsToSet_areNone)
{
    IEnumFORMATETC* none = reinterpret_cast<IEnumFORMATETC*>(1);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_SET, &none), E_NOTIMPL);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(data->EnumFormatEtc(77, &none), E_NOTIMPL);
}

TEST_F(TextDataTest, text_cannotBeSet)
{
    FORMATETC format = asked(CF_TEXT);
    STGMEDIUM medium{};
    EXPECT_EQ(data->SetData(&format, &medium, TRUE), E_NOTIMPL);
    EXPECT_EQ(data->SetData(nullptr, nullptr, FALSE), E_NOTIMPL);
}

TEST_F(TextDataTest, changes_areNotTold)
{
    FORMATETC format = asked(CF_TEXT);
    DWORD connection = 7;
    IEnumSTATDATA* none = reinterpret_cast<IEnumSTATDATA*>(1);
    EXPECT_EQ(data->DAdvise(&format, 0, nullptr, &connection), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(connection, 0u);
    EXPECT_EQ(data->DAdvise(nullptr, 0, nullptr, nullptr), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(data->DUnadvise(7), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(data->EnumDAdvise(&none), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(data->EnumDAdvise(nullptr), OLE_E_ADVISENOTSUPPORTED);
}

TEST_F(TextDataTest, objectAndItsFormats_keepTheModule)
{
    const long before = module::lockCount();
    com_ptr<IEnumFORMATETC> all;
    data->EnumFormatEtc(DATADIR_GET, all.put());
    EXPECT_EQ(module::lockCount(), before + 1);
    all.reset();
    com_ptr<IDataObject> other = makeTextData(L"a");
    EXPECT_EQ(module::lockCount(), before + 1);
    other.reset();
    EXPECT_EQ(module::lockCount(), before);
}

class TextFormatsTest : public testing::Test {
protected:
    TextFormatsTest() { makeTextData(L"a")->EnumFormatEtc(DATADIR_GET, formats.put()); }
    std::vector<CLIPFORMAT> next(ULONG count, HRESULT expected)
    {
        FORMATETC found[4]{};
        ULONG given = 77;
        EXPECT_EQ(formats->Next(count, found, &given), expected);
        std::vector<CLIPFORMAT> names;
        for (ULONG index = 0; index < given && index < 4; ++index) {
            names.push_back(found[index].cfFormat);
            EXPECT_EQ(found[index].tymed, DWORD{TYMED_HGLOBAL});
            EXPECT_EQ(found[index].dwAspect, DWORD{DVASPECT_CONTENT});
            EXPECT_EQ(found[index].lindex, -1);
            EXPECT_EQ(found[index].ptd, nullptr);
        }
        return names;
    }
    com_ptr<IEnumFORMATETC> formats;
};

TEST_F(TextFormatsTest, askedForMoreThanThereAre_givesAllAndSaysSo)
{
    EXPECT_THAT(next(4, S_FALSE), ElementsAre(CF_UNICODETEXT, CF_TEXT));
    EXPECT_THAT(next(1, S_FALSE), IsEmpty());
}

TEST_F(TextFormatsTest, askedForAll_givesAll)
{
    EXPECT_THAT(next(2, S_OK), ElementsAre(CF_UNICODETEXT, CF_TEXT));
}

TEST_F(TextFormatsTest, askedForNone_givesNone)
{
    EXPECT_THAT(next(0, S_OK), IsEmpty());
    EXPECT_THAT(next(1, S_OK), ElementsAre(CF_UNICODETEXT));
}

TEST_F(TextFormatsTest, skipped_areNotGiven)
{
    EXPECT_EQ(formats->Skip(1), S_OK);
    EXPECT_THAT(next(1, S_OK), ElementsAre(CF_TEXT));
    EXPECT_EQ(formats->Skip(1), S_FALSE);
}

TEST_F(TextFormatsTest, hugeNumbers_endAtTheEnd)
{
    EXPECT_EQ(formats->Skip(0xFFFFFFFF), S_FALSE);
    EXPECT_THAT(next(1, S_FALSE), IsEmpty());
}

TEST_F(TextFormatsTest, reset_beginsAgain)
{
    formats->Skip(2);
    EXPECT_EQ(formats->Reset(), S_OK);
    EXPECT_THAT(next(1, S_OK), ElementsAre(CF_UNICODETEXT));
}

TEST_F(TextFormatsTest, clone_goesOnFromTheSamePlaceForItself)
{
    formats->Skip(1);
    com_ptr<IEnumFORMATETC> other;
    ASSERT_EQ(formats->Clone(other.put()), S_OK);
    EXPECT_THAT(next(1, S_OK), ElementsAre(CF_TEXT));
    std::swap(formats, other);
    EXPECT_THAT(next(2, S_FALSE), ElementsAre(CF_TEXT));
}

TEST_F(TextFormatsTest, nullPointers_areRefused)
{
    FORMATETC found[2]{};
    ULONG given = 77;
    EXPECT_EQ(formats->Next(1, nullptr, &given), E_INVALIDARG);
    EXPECT_EQ(given, 0u);
    EXPECT_EQ(formats->Next(2, found, nullptr), E_INVALIDARG);
    EXPECT_EQ(formats->Next(1, found, nullptr), S_OK);
    EXPECT_EQ(formats->Clone(nullptr), E_INVALIDARG);
}

} // namespace
} // namespace velk
