// The part of the workspace that says what reaches the current object.
#include "display/project_reach.h"
#include "display/workspace.h"
#include "model/clsProjekt.h"

const Reasons* Workspace::TheReasons() const {
    return projekt_ ? reach_->Of(*projekt_) : nullptr;
}

bool Workspace::HasReach() const {
    return projekt_ && selection_.CurObject && Reach::Covers(*selection_.CurObject) && CallsRead();
}

WhyRows Workspace::Why(const std::set<WhySection>& whole) const {
    return HasReach() ? WhyRowsOf(*TheReasons(), *selection_.CurObject, whole) : WhyRows();
}

Text Workspace::WhyNoReason() const {
    return projekt_ && selection_.CurObject && Reach::Covers(*selection_.CurObject) && !CallsRead()
               ? Text::ReadCallsFirst
               : Text::EmptyWhy;
}

void Workspace::WalkWhy(const WhyRows& page) {
    walk_ = PlaceWalk(page.places);
    walkOf_ = WalkOf::Why;
}
