#include "flows/scan/verilogconditions.h"

/// Begins a part whose condition is that true, all before it being false or not decided.
TVerilogConditions::TStep TVerilogConditions::Take(TOpen* open, TVerilogDefined truth) {
    open->IsTaken = open->IsOuterTaken && !open->IsDecided && truth != TVerilogDefined::No;
    if (!open->IsTaken) return TStep::None;
    open->IsDecided = truth == TVerilogDefined::Yes;
    const bool wasFork = open->IsFork;
    if (!wasFork && open->IsDecided) return TStep::None;
    if (!wasFork) ++OpenForks;
    open->IsFork = true;
    open->Begun = Defines.Begin();
    return wasFork ? TStep::Turn : TStep::Fork;
}

void TVerilogConditions::LeavePart(TOpen* open) {
    if (!open->IsFork || !open->IsTaken) return;
    if (Defines.Find(open->Name) != TVerilogDefined::Yes) open->IsOfOneName = false;
    Defines.End(open->Begun);
    open->IsTaken = false;
}

TVerilogConditions::TStep TVerilogConditions::If(std::string_view name, bool isWantedDefined) {
    TOpen open;
    open.IsOuterTaken = !IsSkipping();
    open.Name = name;
    open.IsWantedDefined = isWantedDefined;
    TVerilogDefined truth = Defines.Find(name);
    if (!isWantedDefined && truth != TVerilogDefined::Maybe)
        truth = truth == TVerilogDefined::Yes ? TVerilogDefined::No : TVerilogDefined::Yes;
    const TStep step = Take(&open, truth);
    if (step == TStep::Fork && !name.empty()) {
        open.IsOfOneName = true;
        Defines.Assume(name, isWantedDefined ? TVerilogDefined::Yes : TVerilogDefined::No);
    }
    Open.push_back(open);
    return step;
}

TVerilogConditions::TStep TVerilogConditions::Elsif(std::string_view name) {
    if (Open.empty()) return TStep::None;
    TOpen& open = Open.back();
    LeavePart(&open);
    open.IsOfOneName = false;
    return Take(&open, Defines.Find(name));
}

TVerilogConditions::TStep TVerilogConditions::Else() {
    if (Open.empty()) return TStep::None;
    TOpen& open = Open.back();
    LeavePart(&open);
    const TStep step = Take(&open, TVerilogDefined::Yes);
    if (step == TStep::Turn && open.IsOfOneName && !open.HasElse)
        Defines.Assume(open.Name,
                       open.IsWantedDefined ? TVerilogDefined::No : TVerilogDefined::Yes);
    open.HasElse = true;
    return step;
}

TVerilogConditions::TStep TVerilogConditions::End() {
    if (Open.empty()) return TStep::None;
    TOpen open = Open.back();
    LeavePart(&open);
    Open.pop_back();
    if (!open.IsFork) return TStep::None;
    --OpenForks;
    // Without a part for the other case, that leaves the name as the condition has it.
    const bool isDefined = open.IsOfOneName && (open.HasElse || !open.IsWantedDefined);
    if (isDefined) Defines.Assume(open.Name, TVerilogDefined::Yes);
    return TStep::Join;
}
