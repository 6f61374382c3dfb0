#include "xgraph/graph.h"

#include <cmath>
#include <unordered_set>
#include <utility>

#include "model/clsModul.h"
#include "model/clsProjekt.h"

namespace {

const clsModul* OwnerOf(const CodeObject& object) {
    if (object.myLibrary || object.Class() == ObjectClass::TypeLib)
        return nullptr;
    return object.Class() == ObjectClass::Modul ? static_cast<const clsModul*>(&object) : object.Modul;
}

// The value in a range, the lower end if it is no number.
double Within(double value, double low, double high) {
    return std::isnan(value) ? low : std::fmax(low, std::fmin(value, high));
}

bool IsFar(const SymbolPlace& place, double farthest) {
    return !(std::fabs(place.Left) <= farthest && std::fabs(place.Top) <= farthest);
}

}  // namespace

void XGraph::SetProject(clsProjekt* projekt) {
    Clear();
    Follow(projekt);
}

void XGraph::ReplaceProject(clsProjekt& projekt) {
    Follow(&projekt);
    FindObjectsAgain([](const ctlGraphObj&) { return true; });
}

void XGraph::Follow(clsProjekt* projekt) {
    projekt_ = projekt;
    if (projekt)
        projekt->OnReplaced([this, projekt, exists = std::weak_ptr(exists_)] {
            if (!exists.expired() && projekt_ == projekt)
                ProjectReplaced();
        });
}

// A module that was read again is another one: its objects have gone, and their addresses mean nothing. The new one was
// read while the old one still existed, so an address that is still there is that of the same module.
void XGraph::ProjectReplaced() {
    std::unordered_set<const clsModul*> modules;
    for (const std::unique_ptr<clsModul>& modul : projekt_->OwnedModules())
        modules.insert(modul.get());
    FindObjectsAgain([&](const ctlGraphObj& symbol) { return symbol.modul && !modules.contains(symbol.modul); });
    GraphSymbolsRefresh();
}

template <class Lost>
void XGraph::FindObjectsAgain(Lost hasLost) {
    std::unordered_set<const ctlGraphObj*> gone;
    for (const std::unique_ptr<ctlGraphObj>& symbol : symbols_) {
        if (!hasLost(*symbol))
            continue;
        byObject_.erase(std::exchange(symbol->object, nullptr));
        CodeObject* const object = projekt_->GetObjectFromCodePath(symbol->CodePath);
        if (object && object->Class() == symbol->kind) {
            TakeObject(*symbol, *object);
            byObject_.emplace(object, symbol.get());
        } else {
            gone.insert(symbol.get());
        }
    }
    RemoveIf([&](const ctlGraphObj& symbol) { return gone.contains(&symbol); });
}

template <class Goes>
int XGraph::RemoveIf(Goes goes) {
    std::erase_if(selected_, [&](const ctlGraphObj* symbol) { return goes(*symbol); });
    return static_cast<int>(std::erase_if(symbols_, [&](const std::unique_ptr<ctlGraphObj>& symbol) {
        if (!goes(*symbol))
            return false;
        byObject_.erase(symbol->object);
        byPath_.erase(symbol->CodePath);
        byIndex_.erase(symbol->Index);
        return true;
    }));
}

const ctlGraphObj* XGraph::GraphObj(const CodeObject& object) const {
    const auto found = byObject_.find(&object);
    return found == byObject_.end() ? nullptr : found->second;
}

const ctlGraphObj* XGraph::WithPath(std::string_view codePath) const {
    const auto found = byPath_.find(codePath);
    return found == byPath_.end() ? nullptr : found->second;
}

ctlGraphObj* XGraph::Find(int index) const {
    const auto found = byIndex_.find(index);
    return found == byIndex_.end() ? nullptr : found->second;
}

const ctlGraphObj* XGraph::WithIndex(int index) const {
    return Find(index);
}

// Everything that follows from the object, but its path: the keys of byPath_ look into that.
void XGraph::TakeObject(ctlGraphObj& symbol, CodeObject& obj) const {
    symbol.kind = obj.Class();
    symbol.object = &obj;
    symbol.modul = OwnerOf(obj);
    symbol.MyModul = ModulCaptionOf(obj);
    symbol.MyName = obj.myNameOrg();
    symbol.image = obj.GetImageKey();
    AlignObjects(symbol, sizes_);
}

void XGraph::Describe(ctlGraphObj& symbol, CodeObject& obj) const {
    symbol.CodePath = obj.CodePath();
    TakeObject(symbol, obj);
}

GraphSize XGraph::SizeOf(CodeObject& obj) const {
    ctlGraphObj symbol;
    Describe(symbol, obj);
    return symbol.layout.size;
}

const ctlGraphObj* XGraph::GraphObjCreate(CodeObject* obj, double Left, double Top, bool ToFront) {
    if (!obj)
        return nullptr;
    if (WithPath(obj->CodePath()))
        return nullptr;
    ctlGraphObj& symbol = *symbols_.emplace_back(std::make_unique<ctlGraphObj>());
    symbol.Index = ++GraphObjCount_;
    Describe(symbol, *obj);
    if (ToFront)
        symbol.zOrder = ++topmost_;
    byObject_.emplace(obj, &symbol);
    byPath_.emplace(symbol.CodePath, &symbol);
    byIndex_.emplace(symbol.Index, &symbol);
    if (std::isfinite(Left) && std::isfinite(Top))
        Put(symbol, {Left, Top});
    else
        PutOnCanvas(symbol, {Left, Top});
    return &symbol;
}

const ctlGraphObj* XGraph::Drop(CodeObject* obj, GraphPoint place) {
    if (!obj)
        return nullptr;
    const ctlGraphObj* symbol = GraphObjCreate(obj, place.x, place.y, true);
    if (!symbol)
        symbol = WithPath(obj->CodePath());
    active_ = symbol->Index;
    return symbol;
}

int XGraph::GraphDeleteSelected() {
    return RemoveIf([](const ctlGraphObj& symbol) { return symbol.Selected; });
}

void XGraph::Clear() {
    RemoveIf([](const ctlGraphObj&) { return true; });
    canvas_ = emptyCanvas_;
}

void XGraph::GraphSymbolsRefresh() {
    for (const auto& symbol : symbols_) {
        symbol->image = symbol->object->GetImageKey();
        AlignObjects(*symbol, sizes_);
    }
}

void XGraph::SetSelected(ctlGraphObj& symbol, bool selected) {
    if (symbol.Selected == selected)
        return;
    symbol.Selected = selected;
    if (selected)
        selected_.push_back(&symbol);
    else
        std::erase(selected_, &symbol);
}

void XGraph::GraphSelectAll() {
    DeselectAll();
    for (const auto& symbol : symbols_)
        SetSelected(*symbol, true);
}

void XGraph::DeselectAll() {
    for (ctlGraphObj* symbol : selected_)
        symbol->Selected = false;
    selected_.clear();
}

void XGraph::GraphObj_MouseDown(int index, int Shift) {
    ctlGraphObj* const symbol = Find(index);
    if (!symbol)
        return;
    active_ = index;
    if (!symbol->Selected) {
        if (Shift != kCtrl)
            DeselectAll();
        SetSelected(*symbol, true);
    } else if (Shift == kCtrl) {
        SetSelected(*symbol, false);
    }
}

void XGraph::SelectInside(const GraphRect& frame) {
    DeselectAll();
    for (const auto& symbol : symbols_)
        if (frame.Holds(symbol->Frame()))
            SetSelected(*symbol, true);
}

void XGraph::Select(int index, bool selected) {
    if (ctlGraphObj* const symbol = Find(index))
        SetSelected(*symbol, selected);
}

void XGraph::Put(ctlGraphObj& symbol, GraphPoint place) {
    symbol.Left = place.x;
    symbol.Top = place.y;
    GrowCanvas(symbol.Frame());
}

// At the nearest place of the canvas as it is.
void XGraph::PutOnCanvas(ctlGraphObj& symbol, GraphPoint place) {
    Put(symbol, {Within(place.x, canvas_.left, canvas_.Right() - symbol.Width()),
                 Within(place.y, canvas_.top, canvas_.Bottom() - symbol.Height())});
}

bool XGraph::MoveSelected(double dx, double dy) {
    if ((dx == 0 && dy == 0) || selected_.empty())
        return false;
    for (ctlGraphObj* symbol : selected_)
        Put(*symbol, {symbol->Left + dx, symbol->Top + dy});
    return true;
}

void XGraph::MoveTo(int index, GraphPoint place) {
    if (ctlGraphObj* const symbol = Find(index))
        Put(*symbol, place);
}

void XGraph::MoveInto(const GraphRect& view) {
    for (const auto& symbol : symbols_) {
        const double left = std::max(symbol->Left, view.left);
        const double top = std::max(symbol->Top, view.top);
        Put(*symbol, {std::min(left, view.Right() - symbol->Width()), std::min(top, view.Bottom() - symbol->Height())});
    }
}

GraphRect XGraph::SymbolBounds() const {
    if (symbols_.empty())
        return {};
    GraphRect bounds = symbols_.front()->Frame();
    for (const auto& symbol : symbols_)
        bounds = bounds.With(symbol->Frame());
    return bounds;
}

std::vector<SymbolPlace> XGraph::Places() const {
    std::vector<SymbolPlace> places;
    places.reserve(symbols_.size());
    for (const auto& symbol : symbols_)
        places.push_back({symbol->CodePath, symbol->Left, symbol->Top});
    return places;
}

double XGraph::FarthestTwips(std::size_t symbols) {
    constexpr double kRow = 2000;
    return 10 * kCanvasTwips + kRow * static_cast<double>(symbols);
}

void XGraph::SetPlaces(const std::vector<SymbolPlace>& places) {
    std::unordered_set<std::string_view> paths;
    for (const SymbolPlace& place : places)
        paths.insert(place.CodePath);
    RemoveIf([&](const ctlGraphObj& symbol) { return !paths.contains(symbol.CodePath); });

    // What is too far off is put on the canvas at last, when that has the size that the others need.
    const double farthest = FarthestTwips(paths.size());
    std::vector<std::pair<ctlGraphObj*, GraphPoint>> far;
    std::unordered_map<const ctlGraphObj*, std::size_t> order;
    for (const SymbolPlace& place : places) {
        if (paths.erase(place.CodePath) == 0)
            continue;  // its second place
        ctlGraphObj* const symbol = SymbolAt(place.CodePath);
        if (!symbol || !order.emplace(symbol, order.size()).second)
            continue;
        if (IsFar(place, farthest))
            far.emplace_back(symbol, GraphPoint{place.Left, place.Top});
        else
            Put(*symbol, {place.Left, place.Top});
    }
    for (const auto& [symbol, place] : far)
        PutOnCanvas(*symbol, place);
    std::sort(symbols_.begin(), symbols_.end(),
              [&](const auto& one, const auto& other) { return order.at(one.get()) < order.at(other.get()); });
}

// The symbol of that path; a new one at the origin of the canvas, if the project has the object.
ctlGraphObj* XGraph::SymbolAt(const std::string& codePath) {
    if (const auto known = byPath_.find(codePath); known != byPath_.end())
        return known->second;
    CodeObject* const object = projekt_ ? projekt_->GetObjectFromCodePath(codePath) : nullptr;
    const ctlGraphObj* const made = GraphObjCreate(object, canvas_.left, canvas_.top, false);
    return made ? Find(made->Index) : nullptr;
}
