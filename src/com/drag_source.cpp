#include "com/drag_source.h"

#include "base/unique_any.h"
#include "com/com_object.h"
#include "com/text_data.h"

namespace velk {
namespace {

class DropSource : public ComObject<DropSource, IDropSource> {
public:
    explicit DropSource(const Session& life) noexcept : m_life(life) {}

    STDMETHODIMP QueryContinueDrag(BOOL isEscapePressed, DWORD keys) noexcept override
    {
        if (isEscapePressed || m_life.isOver())
            return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON ? S_OK : DRAGDROP_S_DROP;
    }
    STDMETHODIMP GiveFeedback(DWORD) noexcept override { return DRAGDROP_S_USEDEFAULTCURSORS; }

private:
    const Session m_life;
};

// OLE on this thread. Hosts of documents have begun it themselves; one more use does no harm, and without any there is
// no drag.
class ole_use {
public:
    ole_use() { throwIfFailed(OleInitialize(nullptr)); }
    ole_use(const ole_use&) = delete;
    ole_use& operator=(const ole_use&) = delete;
    ~ole_use() { OleUninitialize(); }
};

bool isDragging = false; // on the user-interface thread

} // namespace

com_ptr<IDropSource> makeDropSource(const Session& life)
{
    return com_ptr<IDropSource>(makeObject<DropSource>(life).get());
}

bool dragText(const std::wstring& text, const Session& life)
{
    if (isDragging)
        return false;
    const ole_use ole; // until the objects are gone
    const com_ptr<IDataObject> data = makeTextData(text);
    const com_ptr<IDropSource> source = makeDropSource(life);
    DWORD effect = DROPEFFECT_NONE;
    isDragging = true;
    const scope_exit ended([] { isDragging = false; });
    const HRESULT result = DoDragDrop(data.get(), source.get(), DROPEFFECT_COPY, &effect);
    throwIfFailed(result);
    return result == DRAGDROP_S_DROP && effect == DROPEFFECT_COPY;
}

} // namespace velk
