#include "figures.h"

#include <algorithm>
#include <cstdio>

namespace velk::bench {
namespace {

// Three digits that say something, without an exponent.
std::string shown(double number)
{
    const double size = number < 0 ? -number : number;
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", size >= 100 ? 0 : size >= 10 ? 1 : size >= 1 ? 2 : 3, number);
    return text;
}

std::string exact(double number)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.6g", number);
    return text;
}

std::string quoted(const std::string& text)
{
    std::string result = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\')
            result += '\\';
        result += character;
    }
    return result + '"';
}

using Line = std::vector<std::string>;

Line lineOf(const Figure& figure)
{
    const Summary& summary = figure.summary;
    return {figure.name,
            shown(summary.ours) + ' ' + figure.unit,
            shown(summary.baseline) + ' ' + figure.unit,
            shown(summary.ratio),
            shown(summary.lowest) + " to " + shown(summary.highest),
            figure.growth ? shown(*figure.growth) : "",
            shown(figure.target),
            figure.isMet() ? "yes" : "NO",
            figure.what + ", against " + figure.against + (figure.note.empty() ? "" : " (" + figure.note + ")")};
}

} // namespace

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Summary summarize(const std::vector<Pair>& pairs)
{
    std::vector<double> ours, baseline, ratios;
    for (const Pair& pair : pairs) {
        ours.push_back(pair.ours);
        baseline.push_back(pair.baseline);
        ratios.push_back(pair.ours / pair.baseline);
    }
    std::sort(ratios.begin(), ratios.end());
    const size_t leftOut = (ratios.size() - 1) / 10;
    return {median(ours), median(baseline), median(ratios), ratios[leftOut], ratios[ratios.size() - 1 - leftOut]};
}

std::string tableOf(const std::vector<Figure>& figures)
{
    std::vector<Line> lines{{"name", "ours", "baseline", "ratio", "spread", "growth", "target", "met", "what"}};
    for (const Figure& figure : figures)
        lines.push_back(lineOf(figure));
    std::vector<size_t> widths(lines.front().size());
    for (const Line& line : lines)
        for (size_t column = 0; column < line.size(); ++column)
            widths[column] = std::max(widths[column], line[column].size());
    std::string table;
    for (const Line& line : lines) {
        for (size_t column = 0; column + 1 < line.size(); ++column) {
            const std::string room(widths[column] - line[column].size(), ' ');
            table += (column == 0 ? line[column] + room : room + line[column]) + "  ";
        }
        table += line.back() + '\n';
    }
    return table;
}

std::string jsonOf(const std::vector<Figure>& figures)
{
    std::string json = "[";
    for (const Figure& figure : figures) {
        const Summary& summary = figure.summary;
        json += json.size() > 1 ? ",\n " : "\n ";
        json += "{\"name\": " + quoted(figure.name) + ", \"what\": " + quoted(figure.what) +
                ", \"against\": " + quoted(figure.against) + ", \"unit\": " + quoted(figure.unit) +
                ", \"ours\": " + exact(summary.ours) + ", \"baseline\": " + exact(summary.baseline) +
                ", \"ratio\": " + exact(summary.ratio) + ", \"spread\": [" + exact(summary.lowest) + ", " +
                exact(summary.highest) + "], \"growth\": " + (figure.growth ? exact(*figure.growth) : "null") +
                ", \"target\": " + exact(figure.target) + ", \"met\": " + (figure.isMet() ? "true" : "false") +
                ", \"note\": " + quoted(figure.note) + "}";
    }
    return json + "\n]\n";
}

} // namespace velk::bench
