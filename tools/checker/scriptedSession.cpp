#include "checker/scriptedSession.h"

#include "checker/texts.h"

namespace velk::check {
namespace {

constexpr unsigned long manyPatiences = 30;

void waitLittle()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    constexpr DWORD little = 3; // milliseconds
    Sleep(little);
}

} // namespace

int32_t ScriptedSession::begin(const std::string& projectFile)
{
    m_step = "beginning";
    m_projectFile = projectFile;
    m_beginAnswer = m_calls.initialize(projectFile);
    return m_beginAnswer;
}

int32_t ScriptedSession::end()
{
    m_step = "end";
    m_known.clear();
    return m_calls.terminate();
}

void ScriptedSession::open()
{
    const size_t backslash = m_projectFile.rfind('\\');
    open(backslash == std::string::npos ? "" : m_projectFile.substr(0, backslash),
         backslash == std::string::npos ? m_projectFile : m_projectFile.substr(backslash + 1));
}

void ScriptedSession::open(const std::string& folder, const std::string& file)
{
    m_step = "opening of the project";
    m_openAnswer = m_calls.access(folder, file, modeOpen);
    if (m_openAnswer != 0)
        listen([this](const Heard&) { return project() != 0; });
    listen();
}

void ScriptedSession::openQuickly(const std::function<bool()>& isEnough)
{
    m_step = "opening of the project";
    const size_t backslash = m_projectFile.rfind('\\');
    m_openAnswer = m_calls.access(m_projectFile.substr(0, backslash), m_projectFile.substr(backslash + 1), modeOpen);
    listen([&](const Heard&) { return project() != 0 && isEnough(); });
}

// The contents, or a text that says why they do not come.
bool ScriptedSession::listenForContents(int32_t folder)
{
    return listen([=](const Heard& one) {
        const bool isContents = one.notify.type == typeContents && one.notify.handle == folder;
        const bool isMessage =
            one.notify.type == typeText && one.first.record && one.first.record->number("lTextType") == 3;
        return isContents || isMessage || isQuestion(one);
    });
}

bool ScriptedSession::select(int32_t folder, int32_t kind)
{
    m_step = "selection of folder " + std::to_string(folder);
    m_calls.plain(Fn::RZSetCurrentFolder, folder, kind);
    return listenForContents(folder);
}

bool ScriptedSession::refresh(int32_t folder)
{
    m_step = "refreshing of folder " + std::to_string(folder);
    m_calls.plain(Fn::RZObjectDoAction, folder, actionRefresh);
    return listenForContents(folder);
}

// Whether a connection opens or closes is the library's business; when it does, that is told.
bool ScriptedSession::switchConnection(int32_t connection, int32_t action)
{
    m_step =
        (action == actionConnect ? "opening of connection " : "closing of connection ") + std::to_string(connection);
    const bool wasConnected = isConnectedNow(connection);
    if (m_calls.plain(Fn::RZObjectDoAction, connection, action) == 0 && wasConnected == isConnectedNow(connection))
        return true;
    const bool isHeard = listen([=](const Heard& one) {
        return one.notify.type == typeChanged && one.notify.kind == kindConnection && one.notify.handle == connection;
    });
    return isHeard || wasConnected == isConnectedNow(connection);
}

bool ScriptedSession::isConnectedNow(int32_t connection)
{
    WireRecord record = fetchOfKind(kindConnection)->record();
    return m_calls.fill(Fn::RZConnectionGet, connection, record) != 0 && record.flag("bConnected") != 0;
}

bool ScriptedSession::close()
{
    m_step = closingStep;
    const int32_t closed = project();
    if (m_calls.plain(Fn::RZObjectDoAction, closed, actionClose) == 0)
        return true;
    return listen([=](const Heard& one) {
        return one.notify.type == typeRemoved && one.notify.kind == kindProject && one.notify.handle == closed;
    });
}

int32_t ScriptedSession::act(int32_t handle, int32_t action)
{
    m_step = "action " + std::to_string(action) + " of " + std::to_string(handle);
    return m_calls.plain(Fn::RZObjectDoAction, handle, action);
}

bool ScriptedSession::listen(const std::function<bool(const Heard&)>& isEnough)
{
    const DWORD began = GetTickCount();
    while (GetTickCount() - began < m_patience * manyPatiences && !m_isEndless)
        if (!hearOne())
            waitLittle();
        else if (isEnough(m_heard.back()))
            return true;
    return false;
}

void ScriptedSession::listen()
{
    for (DWORD last = GetTickCount(); GetTickCount() - last < m_patience && !m_isEndless;)
        if (hearOne())
            last = GetTickCount();
        else
            waitLittle();
}

bool ScriptedSession::hearsMore()
{
    const size_t before = m_heard.size();
    listen();
    return m_heard.size() > before;
}

bool ScriptedSession::hearOne()
{
    Heard heard;
    heard.step = m_step;
    heard.pauses = m_pauses;
    // What was asked for meanwhile may have emptied the queue.
    const bool isPromised = m_isPromised && m_actings == m_calls.library().actings();
    heard.notify = m_calls.next();
    heard.call = m_probe.lastCall;
    const bool isThere = heard.notify.answer != 0;
    if (isPromised && !isThere)
        m_brokenPromises.push_back(m_step);
    m_isPromised = isThere && heard.notify.more != 0;
    m_actings = m_calls.library().actings();
    if (!isThere) {
        if (m_empty.size() < mostAtOnce)
            m_empty.push_back(heard.notify);
        m_withoutPause = 0;
        ++m_pauses;
        return false;
    }
    m_isEndless = ++m_withoutPause > mostAtOnce;
    Fetching how = fetching;
    how.isTwice = how.isTwice && m_withoutPause < mostFetchedTwice; // an endless row of them ends sooner
    fetch(m_calls, m_probe, how, heard);
    m_known.learn(heard);
    if (answersQuestions)
        answerQuestion(heard);
    m_heard.push_back(std::move(heard));
    return true;
}

void ScriptedSession::answerQuestion(const Heard& heard)
{
    if (isQuestion(heard))
        m_calls.button("User response", harmlessAnswer(heard.last().record->text("strButtons"), m_step == closingStep));
}

std::vector<RecordCopy> ScriptedSession::enumerate(int32_t folder, int32_t kind)
{
    const FolderKind& of = folderKindOf(kind);
    std::vector<RecordCopy> objects;
    const EnumBegin begin = m_calls.enumBegin(of.begin, folder);
    RepeatedHandles repeated;
    WireRecord record = of.record();
    while (begin.answer != 0 && objects.size() < mostEnumerated) {
        record.presetTexts();
        if (m_calls.fill(of.next, begin.enumeration, record) == 0 || repeated.areTooMany(record.number("lHdl")))
            break;
        objects.emplace_back(record);
    }
    m_calls.plain(of.end, begin.enumeration);
    return objects;
}

} // namespace velk::check
