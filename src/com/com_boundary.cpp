#include "com/com_boundary.h"

#include "com/bstr.h"
#include "com/com_ptr.h"

namespace velk {
namespace {

bool hasRichErrors(IUnknown* object, REFIID iid)
{
    const auto support = com_ptr<IUnknown>(object).tryAs<ISupportErrorInfo>();
    return support && support->InterfaceSupportsErrorInfo(iid) == S_OK;
}

} // namespace

void throwIfFailed(HRESULT result, IUnknown* object, REFIID iid)
{
    if (SUCCEEDED(result))
        return;
    com_ptr<IErrorInfo> info;
    if (!hasRichErrors(object, iid) || GetErrorInfo(0, info.put()) != S_OK)
        throw Error::fromResult(result);
    bstr description;
    bstr source;
    info->GetDescription(description.put());
    info->GetSource(source.put());
    const Error plain = Error::fromResult(result);
    throw Error(plain.number(), description.view().empty() ? plain.description() : description.text(), source.text(),
                result);
}

HRESULT publishError(const Error& error) noexcept
{
    com_ptr<ICreateErrorInfo> info;
    if (SUCCEEDED(CreateErrorInfo(info.put()))) {
        info->SetDescription(const_cast<LPOLESTR>(error.description().c_str()));
        info->SetSource(const_cast<LPOLESTR>(error.source().c_str()));
        SetErrorInfo(0, info.tryAs<IErrorInfo>().get());
    }
    return FAILED(error.result()) ? error.result() : E_FAIL;
}

} // namespace velk
