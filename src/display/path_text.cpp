#include "display/path_text.h"

#include <algorithm>

#include "display/node_objects.h"
#include "display/object_search.h"
#include "display/shown_text.h"
#include "model/clsModul.h"
#include "model/line_numbers.h"
#include "reach/paths.h"
#include "reach/reason_text.h"
#include "shell/clsText.h"

namespace {

std::string Certainty(bool isCertain) {
    return Utf8TextNr(isCertain ? Text::Certain : Text::Possible);
}

class ImpactRows {
public:
    explicit ImpactRows(ReachAnswer& answer) : answer_(answer) {}

    void Add(const Impact::Part& part, bool isCertain) {
        isCertain_ = isCertain;
        const auto isForm = [](const clsModul* modul) { return modul->ModulTyp == ModuleKind::Form; };
        std::vector<const clsModul*> forms;
        std::vector<const clsModul*> modules;
        std::ranges::partition_copy(part.modules, std::back_inserter(forms), std::back_inserter(modules), isForm);
        AddSection(Text::ImpactObjects, part.objects, [this](const Dependent& dependent) {
            ReachRow row = CallerRow(section_, dependent.link, lines_);
            row.about = StepsText(dependent.distance) + " \u00B7 " + row.about;
            return row;
        });
        const auto modulRow = [this](const clsModul* modul) {
            return ObjectRow(section_, *modul, std::string(TextOf(modul->ModulTyp)));
        };
        AddSection(Text::Modules, modules, modulRow);
        AddSection(Text::CountForms, forms, modulRow);
        AddSection(Text::EntryPoints, part.entries,
                   [this](const EntryPoint* entry) { return EntryRow(section_, *entry, lines_); });
    }

private:
    template <class Entry, class RowOf>
    void AddSection(Text heading, const std::vector<Entry>& entries, const RowOf& rowOf) {
        if (entries.empty())
            return;
        ++section_;
        answer_.rows.push_back(HeadingRow(section_, Utf8TextNr(heading) + " (" +
                                                        Utf8Number(static_cast<long long>(entries.size())) +
                                                        ") \u00B7 " + Certainty(isCertain_)));
        for (const Entry& entry : entries) {
            ReachRow row = rowOf(entry);
            row.isPossible = !isCertain_;
            answer_.rows.push_back(std::move(row));
        }
    }

    ReachAnswer& answer_;
    LineNumbers lines_;
    bool isCertain_ = true;
    int section_ = 0;
};

}  // namespace

ReachAnswer PathAnswer(const Reach& reach, const CodeObject& from, const CodeObject& to) {
    ReachAnswer answer;
    answer.title = Filled(Text::PathFromTo, {PathText(from), PathText(to)});
    int nr = 0;
    LineNumbers lines;
    for (const ReachPath& path : PathsBetween(reach.TheLinks(), from, to)) {
        const std::string certainty = Certainty(path.IsCertain());
        ++nr;
        answer.rows.push_back(HeadingRow(nr, Filled(Text::PathNumber, {std::to_string(nr)}) + " \u00B7 " +
                                                 StepsText(static_cast<int>(path.links.size())) + " \u00B7 " +
                                                 certainty));
        answer.rows.push_back(ObjectRow(nr, *path.links.front().from, ObjectKind(*path.links.front().from)));
        for (const Link& link : path.links)
            answer.rows.push_back(StepRow(nr, link, lines));
    }
    if (nr == 0)
        answer.title = Filled(Text::NoPath, {PathText(from), PathText(to)});
    return answer;
}

ReachAnswer ImpactAnswer(const Reach& reach, const CodeObject& object) {
    ReachAnswer answer;
    const Impact impact = ImpactOf(reach, object);
    ImpactRows rows(answer);
    rows.Add(impact.certain, true);
    rows.Add(impact.possible, false);
    answer.title = Filled(answer.rows.empty() ? Text::NoImpact : Text::ImpactOn, {PathText(object)});
    return answer;
}
