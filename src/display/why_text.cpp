#include "display/why_text.h"

#include <algorithm>
#include <optional>
#include <span>

#include "display/object_search.h"
#include "display/shown_text.h"
#include "model/line_numbers.h"
#include "reach/paths.h"
#include "reach/reason_text.h"
#include "reach/reasons.h"
#include "shell/clsText.h"

namespace {

CallPlace PlaceOf(const Link& link) {
    const bool inProcedure = link.from->Class() == ObjectClass::Prozedur;
    // A member leads to its type without naming it: the member itself is what is there.
    const CodeObject* const named = link.kind == LinkKind::Member ? link.from : link.to;
    return {inProcedure ? link.from : ModuleOf(*link.from), named, link.pos,
            link.IsCertain() ? CallType::Really : CallType::MayBe};
}

// The first link from one object to another.
std::optional<Link> LinkBetween(const Links& links, const CodeObject& from, const CodeObject& to) {
    std::optional<Link> found;
    links.ForEachTo(to, [&](const Link& link) {
        if (!found && link.from == &from)
            found = link;
    });
    return found;
}

class PageMaker {
public:
    PageMaker(const Reasons& reasons, const CodeObject& object, const std::set<WhySection>& whole)
        : reasons_(reasons), reach_(reasons.TheReach()), object_(Answering(object)), whole_(whole) {}

    WhyRows Make() {
        const Reason reason = reasons_.ReasonOf(object_);
        Say(SentenceOf(reason, lines_));
        Say(SentenceOf(object_, reasons_.GradeOf(object_), lines_));
        if (const Declaration* declared = reach_.TheDeclared().Of(object_.CodePath());
            declared && !declared->comment.empty())
            Say(Utf8TextNr(Text::Comment) + ": " + Utf8Of(nullptr, declared->comment));
        AddChain(reason.chain);
        AddCallers(reason);
        AddEntries();
        AddGoing();
        return std::move(page_);
    }

private:
    static int Number(WhySection section) { return static_cast<int>(section); }

    void Say(std::string sentence) {
        if (!sentence.empty())
            page_.rows.push_back({.kind = ReachRow::Kind::Sentence, .text = std::move(sentence), .about = {}});
    }
    void Add(ReachRow row) { page_.rows.push_back(std::move(row)); }
    void Add(ReachRow row, const Link& link) {
        if (row.line > 0) {
            row.place = static_cast<int>(page_.places.size());
            page_.places.push_back(PlaceOf(link));
        }
        Add(std::move(row));
    }
    void AddChain(const Chain& chain) {
        if (!chain.entry || chain.links.empty())
            return;
        const int section = Number(WhySection::Chain);
        Add(HeadingRow(section, Utf8TextNr(Text::WhyChain)));
        Add(EntryRow(section, *chain.entry, lines_));
        for (const Link& link : chain.links)
            Add(StepRow(section, link, lines_), link);
    }
    void AddCallers(const Reason& reason) {
        const bool isRing = reason.kind == ReasonKind::Ring;
        AddSection(WhySection::Callers, isRing ? Text::WhyRing : Text::WhyCallers, reason.objects,
                   [&](const CodeObject* caller) {
                       const int section = Number(WhySection::Callers);
                       const std::optional<Link> link = LinkBetween(reach_.TheLinks(), *caller, object_);
                       if (link)
                           Add(CallerRow(section, *link, lines_), *link);
                       else
                           Add(ObjectRow(section, *caller, ObjectKind(*caller)));
                   });
    }
    void AddEntries() {
        AddSection(WhySection::EntryPoints, Text::WhyEntries, EntryPointsReaching(reach_, object_),
                   [this](const EntryReaching& reaching) {
                       ReachRow row = EntryRow(Number(WhySection::EntryPoints), *reaching.entry, lines_,
                                               reaching.distance == 0 ? std::string() : StepsText(reaching.distance));
                       if (!reaching.isCertain && reaching.entry->IsCertain())
                           row.about.append(" \u00B7 ").append(Utf8TextNr(Text::Possible));
                       row.isPossible = !reaching.isCertain;
                       Add(std::move(row));
                   });
    }
    void AddGoing() {
        AddSection(WhySection::GoesWithIt, Text::WhyGoesWithIt, DiesWith(reach_, object_),
                   [this](const CodeObject* going) {
                       Add(ObjectRow(Number(WhySection::GoesWithIt), *going, ObjectKind(*going)));
                   });
    }
    template <class Entry, class AddRow>
    void AddSection(WhySection section, Text heading, const std::vector<Entry>& entries, const AddRow& addRow) {
        if (entries.empty())
            return;
        Add(HeadingRow(Number(section),
                       Utf8TextNr(heading) + " (" + Utf8Number(static_cast<long long>(entries.size())) + ")"));
        // Two rows more are not worth a click.
        const bool isWhole = whole_.contains(section) || entries.size() <= kFirstRows + 2;
        for (const Entry& entry : std::span(entries).first(isWhole ? entries.size() : kFirstRows))
            addRow(entry);
        if (!isWhole)
            Add({.kind = ReachRow::Kind::More,
                 .text = Filled(Text::ShowAllOf, {Utf8Number(static_cast<long long>(entries.size()))}),
                 .about = {},
                 .section = Number(section)});
    }

    const Reasons& reasons_;
    const Reach& reach_;
    const CodeObject& object_;
    const std::set<WhySection>& whole_;
    WhyRows page_;
    LineNumbers lines_;
};

}  // namespace

WhyRows WhyRowsOf(const Reasons& reasons, const CodeObject& object, const std::set<WhySection>& whole) {
    return PageMaker(reasons, object, whole).Make();
}

std::string WhySentence(const Reasons& reasons, const CodeObject& object) {
    LineNumbers lines;
    return Reach::Covers(object) && &Answering(object) == &object ? SentenceOf(reasons.ReasonOf(object), lines)
                                                                  : std::string();
}
