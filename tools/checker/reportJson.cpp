// The report for programs: JSON, and JUnit's XML.
#include "checker/report.h"

#include <cstdio>
#include <string_view>

namespace velk::check {
namespace {

std::string hexadecimalPair(unsigned char byte)
{
    char text[8]{};
    std::snprintf(text, sizeof text, "%02x", byte);
    return text;
}

std::string field(const char* name, std::string_view value, bool isLast = false)
{
    return "\"" + std::string(name) + "\": \"" + jsonEscaped(value) + "\"" + (isLast ? "" : ", ");
}

std::string decimal(double number)
{
    char text[32]{};
    std::snprintf(text, sizeof text, "%.3f", number);
    return text;
}

template <class Item, class Write>
std::string list(const std::vector<Item>& items, Write write)
{
    std::string text = "[";
    for (size_t index = 0; index < items.size(); ++index)
        text += (index == 0 ? "\n    " : ",\n    ") + write(items[index]);
    return text + (items.empty() ? "]" : "\n  ]");
}

std::vector<Rule> lookedAt(const Report& report)
{
    std::vector<Rule> rules;
    for (size_t row = 0; row < ruleCount; ++row)
        if (report.rules[row].outcome != Outcome::notRun)
            rules.push_back(static_cast<Rule>(row));
    return rules;
}

std::string findingLines(const Report& report, Rule rule)
{
    std::string text;
    for (const Finding& one : report.findings)
        if (one.rule == rule)
            text += one.call + "(" + one.arguments + "): expected " + one.expected + ", seen " + one.seen + "\n";
    return text;
}

std::string testCase(const Report& report, Rule rule)
{
    const RuleReport& one = report[rule];
    const RuleRow& row = rowOf(rule);
    std::string text = "    <testcase classname=\"level " + std::to_string(row.level) + "\" name=\"" +
                       xmlEscaped(std::string(row.number) + " " + row.title) + "\"";
    if (one.outcome == Outcome::broken)
        return text + ">\n      <failure message=\"" + xmlEscaped(std::string("see #") + row.anchor) + "\">" +
               xmlEscaped(findingLines(report, rule)) + "</failure>\n    </testcase>\n";
    if (one.outcome == Outcome::notChecked)
        return text + ">\n      <skipped message=\"" + xmlEscaped(one.why) + "\"/>\n    </testcase>\n";
    return text + "/>\n";
}

} // namespace

std::string jsonEscaped(std::string_view text)
{
    std::string escaped;
    for (const char letter : text)
        if (letter == '"' || letter == '\\')
            escaped += std::string("\\") + letter;
        else if (static_cast<unsigned char>(letter) < ' ')
            escaped += "\\u00" + hexadecimalPair(static_cast<unsigned char>(letter));
        else
            escaped += letter;
    return escaped;
}

std::string xmlEscaped(std::string_view text)
{
    std::string escaped;
    for (const char letter : text)
        switch (letter) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '\n':
            escaped += "&#10;";
            break;
        default: // XML has no other control characters, however they are written
            escaped += static_cast<unsigned char>(letter) < ' ' ? ' ' : letter;
        }
    return escaped;
}

std::string asJson(const Report& report)
{
    const Head& head = report.head;
    std::string text = "{\n  \"head\": {" + field("library", head.library) + field("version", head.version) +
                       "\"size\": " + std::to_string(head.size) + ", " + field("sha256", head.sha256) +
                       field("system", head.system) + field("project", head.project) +
                       "\"seed\": " + std::to_string(head.seed) + "},\n  \"levels\": ";
    text += list(report.levels, [](const LevelReport& one) {
        return "{\"level\": " + std::to_string(one.level) + ", " + field("verdict", outcomeText(one.outcome)) +
               "\"seconds\": " + decimal(one.seconds) + "}";
    });
    text += ",\n  \"rules\": " + list(lookedAt(report), [&](Rule rule) {
                const RuleRow& row = rowOf(rule);
                return "{" + field("rule", row.number) + "\"level\": " + std::to_string(row.level) + ", " +
                       field("title", row.title) + field("outcome", outcomeText(report[rule].outcome)) +
                       field("why", report[rule].why, true) + "}";
            });
    text += ",\n  \"findings\": " + list(report.findings, [](const Finding& one) {
                return "{" + field("rule", rowOf(one.rule).number) + "\"level\": " + std::to_string(one.level) + ", " +
                       field("call", one.call) + field("arguments", one.arguments) + field("expected", one.expected) +
                       field("seen", one.seen) + "\"times\": " + std::to_string(one.times) + ", " +
                       field("anchor", rowOf(one.rule).anchor, true) + "}";
            });
    text += ",\n  \"slowest\": " + list(report.slow, [](const SlowCall& one) {
                return "{" + field("call", one.call) + field("arguments", one.arguments) +
                       "\"microseconds\": " + std::to_string(one.microseconds) + "}";
            });
    text += ",\n  \"above50ms\": " + list(report.noticed, [](const NoticedFunction& one) {
                return "{" + field("call", one.call) + "\"calls\": " + std::to_string(one.calls) +
                       ", \"longest\": " + std::to_string(one.longest) + "}";
            });
    return text + ",\n  \"failed\": " + (report.hasFailed ? "true" : "false") + ",\n  " +
           field("verdict", outcomeText(report.outcome()), true) + "\n}\n";
}

std::string asJunit(const Report& report)
{
    const std::vector<Rule> rules = lookedAt(report);
    size_t failures = 0;
    size_t skipped = 0;
    std::string cases;
    for (const Rule rule : rules) {
        failures += report.isBroken(rule) ? 1u : 0u;
        skipped += report[rule].outcome == Outcome::notChecked ? 1u : 0u;
        cases += testCase(report, rule);
    }
    const std::string counts = "tests=\"" + std::to_string(rules.size()) + "\" failures=\"" + std::to_string(failures) +
                               "\" skipped=\"" + std::to_string(skipped) + "\"";
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites " + counts + ">\n  <testsuite name=\"" +
           xmlEscaped(report.head.library) + "\" " + counts + ">\n" + cases + "  </testsuite>\n</testsuites>\n";
}

} // namespace velk::check
