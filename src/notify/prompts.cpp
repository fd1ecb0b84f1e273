#include "notify/prompts.h"

#include "backend/calls.h"
#include "notify/promptLook.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

constexpr wchar_t answerText[] = L"User response";

} // namespace

void showPrompt(const Session& session, const trzText& text)
{
    const PromptLook look = promptLook(text.strButtons);
    const int32_t answer = showMessage(text.strText, look.style, look.title);
    // The IDE can unload the add-in while the box is open; the session that asked is over then. A box that could not be
    // shown has no answer.
    if (answer == 0 || session.isOver())
        return;
    std::wstring said = answerText;
    RZButtonDoAction(said, answer);
}

} // namespace velk
