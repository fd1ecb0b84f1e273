#include "devkit/ide/textDrop.h"

#include "base/unique_any.h"
#include "com/text_data.h"
#include "ideFixture.h"

namespace velk::devkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A source that has texts in the code page only, or none at all.
class OldData : public ComObject<OldData, IDataObject> {
public:
    explicit OldData(CLIPFORMAT format) : m_format(format) {}
    STDMETHODIMP QueryGetData(FORMATETC* asked) noexcept override
    {
        return asked->cfFormat == m_format ? S_OK : DV_E_FORMATETC;
    }
    STDMETHODIMP GetData(FORMATETC* asked, STGMEDIUM* medium) noexcept override
    {
        return m_text->GetData(asked, medium);
    }
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD, IEnumFORMATETC**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DUnadvise(DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }

private:
    const CLIPFORMAT m_format;
    const com_ptr<IDataObject> m_text = makeTextData(L"old.text");
};

class TextDropTest : public IdeFixture {
protected:
    // The effect that the target chose at the end.
    DWORD drop(IDataObject* data, DWORD allowed = DROPEFFECT_COPY)
    {
        DWORD effect = allowed;
        target->DragEnter(data, MK_LBUTTON, {0, 0}, &effect);
        effect = allowed;
        target->DragOver(MK_LBUTTON, {0, 0}, &effect);
        effect = allowed;
        target->Drop(data, 0, {0, 0}, &effect);
        return effect;
    }
    std::wstring shown() const
    {
        wchar_t text[128] = L"";
        GetWindowTextW(edit.get(), text, 128);
        return text;
    }

    const unique_window edit{
        CreateWindowExW(0, L"EDIT", L"", WS_POPUP | ES_MULTILINE, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr)};
    const com_ptr<IDropTarget> target = makeTextTarget(edit.get(), L"Immediate");
};

TEST_F(TextDropTest, droppedText_isShownAndWrittenToTheJournal)
{
    EXPECT_EQ(drop(makeTextData(L"sales.\u6ce8\u6587").get()), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(shown(), L"sales.\u6ce8\u6587");
    EXPECT_THAT(recorder().lines(), ElementsAre(L"Immediate dropped \"sales.\u6ce8\u6587\""));
}

TEST_F(TextDropTest, nextText_standsInALineOfItsOwn)
{
    drop(makeTextData(L"a").get());
    drop(makeTextData(L"b").get());
    EXPECT_EQ(shown(), L"a\r\nb");
}

TEST_F(TextDropTest, sourceOfTheCodePage_isTaken)
{
    EXPECT_EQ(drop(makeObject<OldData>(CLIPFORMAT{CF_TEXT}).get()), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(shown(), L"old.text");
}

TEST_F(TextDropTest, sourceWithoutAText_isNot)
{
    EXPECT_EQ(drop(makeObject<OldData>(CLIPFORMAT{CF_BITMAP}).get()), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(shown(), L"");
    EXPECT_THAT(recorder().lines(), IsEmpty());
}

TEST_F(TextDropTest, sourceThatWantsToBeMoved_isNot)
{
    EXPECT_EQ(drop(makeTextData(L"a").get(), DROPEFFECT_MOVE), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(shown(), L"");
}

} // namespace
} // namespace velk::devkit
