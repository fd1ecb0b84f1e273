// Tested in tests/forms/serverview/svrViewCtlTest.cpp.
#include "serverview/publishedView.h"

#include "base/error.h"
#include "base/never_destroyed.h"

namespace velk {
namespace {

template <class Part>
Part& present(Part* part)
{
    if (!part)
        throw Error(errorObjectNotSet);
    return *part;
}

} // namespace

PublishedView& publishedView()
{
    static never_destroyed<PublishedView> view;
    return view.get();
}

TreeView& publishedTree()
{
    return present(publishedView().serverTreeView);
}

DetailsList& publishedList()
{
    return present(publishedView().serverDetailsView);
}

int pictureOf(const wchar_t* key)
{
    return present(publishedView().ImageList1).indexOf(key);
}

} // namespace velk
