// What the add-in costs, as ratios within one run. bench [--json FILE] [--dll FILE] [NAME...]: the rows whose names
// begin so, all without a name.
#include "measure.h"
#include "shipped.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace velk::bench {
namespace {

constexpr std::span<const Row> (*rooms[])() = {recordRows, folderRows, keyRows,       stormRows, floodRows,
                                               orderRows,  filterRows, selectionRows, fitRows,   memoryRows,
                                               treeRows,   lifeRows,   shippedRows};

Figure measured(const Row& row)
{
    const Outcome outcome = row.measure(many);
    Figure figure{.name = row.name, .what = row.what, .against = row.against, .unit = row.unit};
    figure.summary = summarize(outcome.pairs);
    figure.target = row.target;
    figure.note = outcome.note;
    if (outcome.pairs.size() > 1 && outcome.pairs.size() < static_cast<size_t>(fewestPairs))
        figure.note += (outcome.note.empty() ? "only " : ", only ") + std::to_string(outcome.pairs.size()) + " pairs";
    if (row.isMeasuredSmall)
        figure.growth = figure.summary.ours / summarize(row.measure(many / 10).pairs).ours;
    return figure;
}

bool isWanted(const Row& row, const std::vector<std::string>& names)
{
    return names.empty() || std::any_of(names.begin(), names.end(), [&row](const std::string& name) {
               return std::string(row.name).starts_with(name);
           });
}

std::vector<Figure> measureAll(const std::vector<std::string>& names)
{
    std::vector<Figure> figures;
    for (const auto room : rooms)
        for (const Row& row : room())
            if (isWanted(row, names)) {
                const double took = milliseconds([&] { figures.push_back(measured(row)); });
                std::fprintf(stderr, "%s: %.1f s\n", row.name, took / 1000);
            }
    return figures;
}

bool save(const std::string& path, const std::string& text)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && isWritten;
}

} // namespace
} // namespace velk::bench

int main(int count, char** arguments)
{
    using namespace velk::bench;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    std::vector<std::string> names;
    std::string json;
    for (int index = 1; index < count; ++index)
        if (std::strcmp(arguments[index], "--json") == 0 && index + 1 < count)
            json = arguments[++index];
        else if (std::strcmp(arguments[index], "--dll") == 0 && index + 1 < count)
            shippedDll() = arguments[++index];
        else
            names.push_back(arguments[index]);
    const std::vector<Figure> figures = measureAll(names);
    if (figures.empty()) {
        std::fprintf(stderr, "bench: no row has such a name\n");
        return 2;
    }
    std::printf("%s", tableOf(figures).c_str());
    if (!json.empty() && !save(json, jsonOf(figures))) {
        std::fprintf(stderr, "bench: %s cannot be written\n", json.c_str());
        return 1;
    }
    return 0;
}
