#include "support/storm.h"

#include "support/control_fixture.h"
#include "support/pixel_image.h"

#include <mirelfrw7/core/base_control.h>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace mirel_test {

using namespace mirelfrw7;

namespace {

constexpr bool SanitizedBuild() {
#if defined(__SANITIZE_ADDRESS__)
    return true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
    return true;
#else
    return false;
#endif
#else
    return false;
#endif
}

void Collect(CVisualElement* e, std::vector<CVisualElement*>& out) {
    out.push_back(e);
    for (int i = 0; i < e->GetChildren()->GetCount(); ++i)
        Collect(e->GetChildren()->GetItem(i), out);
}

// Places a full layout decides: elements below an undocked one are laid out only when something asks for
// it, and a hidden one is not laid out at all, so their places depend on the history and stay out of the
// comparison.
void CollectPlaced(CVisualElement* e, std::map<CVisualElement*, rectangle<int>>& out) {
    if (!e->IsVisible()) return;
    out[e] = e->GetPosition();
    if (e->GetAlignment() == AlignNone) return;
    for (int i = 0; i < e->GetChildren()->GetCount(); ++i)
        CollectPlaced(e->GetChildren()->GetItem(i), out);
}

std::string Text(rectangle<int> const& r) {
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
           std::to_string(r.bottom);
}

class CStorm : public tarnkit2::subscriber_base_t {
public:
    CStorm(StormFactory const& factory, unsigned seed)
        : m_factory(factory), m_random(seed),
          m_checkEvery(
              std::getenv("MIREL_STORM_CHECK_EVERY") ? std::atol(std::getenv("MIREL_STORM_CHECK_EVERY")) : 1),
          m_f(std::make_unique<CControlFixture>(mirel7::size<int>{64, 48}, false)) {
        m_f->control->SetCopyToClipboard(true);
        NewContent();
    }
    ~CStorm() override { m_f.reset(); }
    CStorm(CStorm const&) = delete;
    CStorm& operator=(CStorm const&) = delete;

    testing::AssertionResult Run(long actions) {
        for (m_action = 0; m_action < actions && m_failure.empty(); ++m_action) {
            Act();
            if (m_failure.empty()) Check();
            // Any full repaint in between, a resize say, hides what went stale before it: the more often,
            // the sharper.
            if (m_failure.empty() && m_action % m_checkEvery == m_checkEvery - 1) Checkpoint();
        }
        if (m_failure.empty()) return testing::AssertionSuccess();
        std::string last;
        for (std::string const& line : m_log)
            last += "\n  " + line;
        return testing::AssertionFailure()
               << m_failure << " at action " << m_action << "; the last actions:" << last;
    }

private:
    int U(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    CBaseControlImp* Imp() const { return m_f->Imp(); }
    mirel7::headless::CHeadlessWindow& Window() const { return *m_f->window; }
    mirel7::size<int> ClientSize() const {
        screen_rectangle<int> client;
        Window().GetClientRect(client);
        return {client.Width(), client.Height()};
    }
    void Note(std::string what) {
        m_log.push_back(std::to_string(m_action) + " " + std::move(what));
        if (m_log.size() > 24) m_log.pop_front();
    }
    void Fail(std::string why) {
        if (m_failure.empty()) m_failure = std::move(why);
    }

    CVisualElement* Make(CVisualElement* parent) {
        CVisualElement* const e = m_factory(parent, m_random);
        m_made.insert(e);
        e->sigDestroy.connect(this, &CStorm::Died);
        e->sigClick.connect(this, &CStorm::Released);
        e->sigButtonUp.connect(this, &CStorm::Released);
        e->sigStartDragging.connect(this, &CStorm::StartDragging);
        e->sigDragOver.connect(this, &CStorm::DragOver);
        return e;
    }
    void Grow(CVisualElement* parent, int depth) {
        for (int n = U(1, 3); n > 0 && depth > 0; --n)
            Grow(Make(parent), depth - 1);
    }
    void NewContent() {
        CVisualElement* const root = Make(nullptr);
        Grow(root, 3);
        m_f->control->SetContent(root);
    }

    // The slots of a good application: a delegate that dies is forgotten by the element it served.
    void Died(CVisualElement* e) {
        m_made.erase(e);
        m_handPlaced.erase(e);
        for (CVisualElement* other : m_made)
            if (other->GetFocusDelegate() == e) other->SetFocusDelegate(nullptr);
    }
    // The end of a gesture deletes what was clicked, or what is dragged; never an element the dispatch is
    // still inside.
    void Released(CVisualElement* e, int, int, int, MouseButton) {
        if (U(0, 5) != 0) return;
        CVisualElement* doomed = U(0, 1) ? e : Imp()->GetDraggedElement();
        if (!doomed || !m_made.count(doomed) || doomed == Imp()->GetContent()) return;
        if (doomed != e && IsAncestor(e, doomed)) return;
        Note("a slot deletes " + std::string(doomed == e ? "the released element" : "the dragged element"));
        delete doomed;
    }
    void StartDragging(CVisualElement*, int, int, DragInfo*, bool* accepted, bool*) { *accepted = U(0, 1); }
    void DragOver(CVisualElement*, CVisualElement*, DragInfo*, bool* accepted, bool*) { *accepted = U(0, 1); }

    std::vector<CVisualElement*> Tree() const {
        std::vector<CVisualElement*> all;
        Collect(Imp()->GetContent(), all);
        return all;
    }
    // The elements the control holds, the random ones besides, with the root first.
    CVisualElement* Target() {
        std::vector<CVisualElement*> const all = Tree();
        CVisualElement* const candidates[] = {Imp()->GetCapture(), Imp()->GetDraggedElement(),
                                              Imp()->GetFocusedElement(), Imp()->GetMouseElement(),
                                              Imp()->GetClickedElement()};
        int const pick = U(0, 9);
        if (pick < 5 && candidates[pick]) return candidates[pick];
        if (pick == 5) {
            std::vector<CVisualElement*> const held = Imp()->GetHeldElements();
            if (!held.empty()) return held[std::size_t(U(0, int(held.size()) - 1))];
        }
        return all[std::size_t(U(0, int(all.size()) - 1))];
    }

    void Act() {
        // A lock held for long hides the window from the checkpoints: it is let go after a few actions.
        if (m_locks > 0 && U(0, 7) == 0) {
            Note("unlock");
            --m_locks;
            m_f->control->LockRearrange(false);
            return;
        }
        int const x = U(-4, ClientSize().cx + 4), y = U(-4, ClientSize().cy + 4);
        int const kind = U(0, 59);
        if (kind < 8) {
            Note("move " + std::to_string(x) + "," + std::to_string(y));
            Window().InjectMouseMove(x, y);
        } else if (kind < 11) {
            Note("down");
            Window().InjectButtonDown(m_lastX, m_lastY);
        } else if (kind < 14) {
            Note("up");
            Window().InjectButtonUp(m_lastX, m_lastY);
        } else if (kind == 14) {
            Note("double click");
            Window().InjectDoubleClick(x, y);
        } else if (kind == 15) {
            Note("wheel");
            Window().InjectWheel(x, y, U(-2, 2));
        } else if (kind < 19) {
            static int const keys[][2] = {{mirel7::KeyTab, 0},
                                          {mirel7::KeyTab, mirel7::FlagShift},
                                          {'C', mirel7::FlagControl},
                                          {'A', 0}};
            auto const& key = keys[U(0, 3)];
            Note("key " + std::to_string(key[0]) + " flags " + std::to_string(key[1]));
            Window().InjectKeyDown(key[0], key[1]);
            if (U(0, 1)) Window().InjectChar('a');
            if (U(0, 1)) Window().InjectKeyUp(key[0], key[1]);
        } else if (kind == 19) {
            Note("focus");
            U(0, 1) ? Window().InjectFocusIn() : Window().InjectFocusOut();
        } else if (kind == 20) {
            Note("leave, hover");
            U(0, 1) ? Window().InjectLeave() : Window().InjectHover();
        } else if (kind == 21) {
            Note("tooltip");
            U(0, 1) ? (void)Window().InjectTooltip(x, y) : (void)Window().InjectTooltipTrack(x, y);
        } else if (kind == 22) {
            Note("context menu, custom");
            U(0, 1) ? Window().InjectContextMenu(x, y) : Window().InjectCustom(U(0, 2));
        } else if (kind == 23 && U(0, 3) == 0) {
            int const size = U(0, 40);
            mirel7::size<int> const to = size == 0   ? mirel7::size<int>{0, 0}
                                         : size == 1 ? mirel7::size<int>{1, 1}
                                         : size == 2 ? mirel7::size<int>{U(0, 1) ? 0 : 50, U(0, 1) ? 40 : 0}
                                         : size == 3 ? mirel7::size<int>{1600, 1200}
                                                     : mirel7::size<int>{U(8, 90), U(8, 70)};
            Note("resize " + std::to_string(to.cx) + "x" + std::to_string(to.cy));
            Window().InjectResize(to.cx, to.cy);
        } else if (kind == 24) {
            Note("clock, runnables");
            m_f->system.Advance(U(1, 700));
            Window().RunPending();
        } else if (kind < 32) {
            Note("paint");
            Paint();
        } else {
            Change();
        }
        if (kind < 8) m_lastX = x, m_lastY = y;
    }

    void Change() {
        CVisualElement* const e = Target();
        CVisualElement* const root = Imp()->GetContent();
        bool const isRoot = e == root;
        int const kind = U(0, 15);
        std::vector<CVisualElement*> const all = Tree();
        if (kind == 0 && !isRoot && m_made.count(e)) {
            Note("delete");
            delete e;
        } else if (kind == 1 && !isRoot) {
            CVisualElement* const parent = all[std::size_t(U(0, int(all.size()) - 1))];
            Note("reparent");
            if (!IsAncestor(parent, e)) e->ReParent(parent, true);
        } else if (kind == 2 && !isRoot) {
            Note("hide/show");
            e->SetVisible(!e->IsVisible());
        } else if (kind == 3) {
            Note("size");
            e->SetSize({U(0, 40), U(0, 40)}, false);
        } else if (kind == 4 && !isRoot) {
            Note("alignment");
            e->SetAlignment(static_cast<Alignment>(U(AlignNone, AlignClient)));
        } else if (kind == 5 && e->GetParent() && e->GetAlignment() == AlignNone) {
            Note("place");
            int const left = U(-10, 60), top = U(-10, 50);
            e->SetPos({left, top, left + U(0, 40), top + U(0, 40)}, false);
            m_handPlaced[e] = e->GetPosition();
        } else if (kind == 6) {
            Note("enable");
            e->SetEnabled(!e->IsEnabled());
        } else if (kind == 7) {
            Note("focusable, focus");
            e->SetFocusable(U(0, 2) != 0);
            if (U(0, 1)) e->SetFocus(U(0, 1));
        } else if (kind == 8 && m_made.count(e)) {
            std::vector<CVisualElement*> const made(m_made.begin(), m_made.end());
            Note("delegate");
            e->SetFocusDelegate(U(0, 2) ? made[std::size_t(U(0, int(made.size()) - 1))] : nullptr);
        } else if (kind == 9) {
            Note("capture");
            U(0, 1) ? e->CaptureMouse() : e->ReleaseMouse();
        } else if (kind == 10) {
            Note("tab handler, drag");
            if (U(0, 1))
                Imp()->SetTabHandler(e);
            else if (!Imp()->GetDraggedElement())
                Imp()->StartDragging(e, DragInfo());
        } else if (kind == 11 && all.size() < 60) {
            Note("grow");
            Grow(e, 2);
        } else if (kind == 12 && U(0, 5) == 0) {
            Note("new content");
            NewContent();
        } else if (kind == 13) {
            bool const lock = m_locks == 0 || (m_locks < 3 && U(0, 2) == 0);
            Note(lock ? "lock" : "unlock");
            m_locks += lock ? 1 : -1;
            m_f->control->LockRearrange(lock);
        } else if (kind == 14) {
            Note("update");
            e->Update(U(0, 3) ? UpdateLocal : UpdateGlobal);
        } else {
            Note("colour");
            e->SetBkColor(mirel7::_color(U(0, 255), U(0, 255), U(0, 255)));
        }
        if (all.size() < 6) Grow(Imp()->GetContent(), 2);
    }

    // A paint may lay out and ask for one more, never for paints without end.
    void Paint() {
        m_f->Paint();
        for (int again = 0; again < 3 && Window().IsPaintPending(); ++again)
            m_f->Paint();
        if (Window().IsPaintPending()) Fail("the paints do not settle");
    }

    void Check() {
        std::vector<CVisualElement*> const all = Tree();
        std::unordered_set<CVisualElement*> const tree(all.begin(), all.end());
        for (CVisualElement* held : Imp()->GetHeldElements())
            if (!tree.count(held)) {
                Fail("the control holds an element outside its tree");
                return;
            }
    }

    void Checkpoint() {
        mirel7::size<int> const client = ClientSize();
        // A drag draws its item over a copy of the last frame, which a full repaint does not: no pixel
        // comparison while one runs.
        if (m_locks != 0 || client.cx < 1 || client.cy < 1 || client.cx > 200 || Imp()->GetDraggedElement() ||
            (Imp()->GetMouseFlags() & CBaseControlImp::DragBufferDrop))
            return;
        Paint();
        CPixelImage const incremental = CPixelImage::Of(*Window().GetPainter());
        Imp()->GetContent()->Update(UpdateGlobal);
        Paint();
        testing::AssertionResult const same =
            ImagesMatch(incremental, CPixelImage::Of(*Window().GetPainter()), 0, 0, "storm");
        if (!same)
            return Fail(std::string("the incremental repaint differs from a full one: ") + same.message());

        // A full layout heals whatever the incremental one left pending: it comes at every few checkpoints
        // only, so that a fault has the time to show in the pixels.
        if (++m_checkpoints % LayoutEvery != 0) return;
        std::map<CVisualElement*, rectangle<int>> before, after;
        CollectPlaced(Imp()->GetContent(), before);
        m_f->control->Rearrange();
        Paint();
        CollectPlaced(Imp()->GetContent(), after);
        // A place given by hand is an input of the layout, not its outcome: a parent that places its
        // children with its own code takes it back, a plain one keeps it. Once anything moved the element,
        // its place is an outcome again.
        std::map<CVisualElement*, rectangle<int>> const handPlaced = std::exchange(m_handPlaced, {});
        for (auto const& [element, place] : before)
            if (after.count(element) && after[element] != place &&
                !(handPlaced.count(element) && handPlaced.at(element) == place))
                return Fail("the incremental layout placed an element at " + Text(place) +
                            ", a full one at " + Text(after[element]));
    }

    StormFactory const& m_factory;
    std::mt19937 m_random;
    std::unordered_set<CVisualElement*> m_made;
    std::map<CVisualElement*, rectangle<int>> m_handPlaced;
    std::deque<std::string> m_log;
    std::string m_failure;
    long m_action = 0;
    int m_locks = 0;
    long const m_checkEvery;
    static constexpr long LayoutEvery = 16;
    long m_checkpoints = 0;
    int m_lastX = 0, m_lastY = 0;
    std::unique_ptr<CControlFixture> m_f;
};

} // namespace

testing::AssertionResult SurvivesStorm(StormFactory const& factory, unsigned seed, long actions) {
    char const* const seeds = std::getenv("MIREL_STORM_SEEDS");
    unsigned const end = seed + unsigned(seeds ? std::max(std::atoi(seeds), 1) : 1);
    for (; seed != end; ++seed) {
        CStorm storm(factory, seed);
        testing::AssertionResult const result = storm.Run(actions);
        if (!result) return testing::AssertionFailure() << "storm seed " << seed << ": " << result.message();
    }
    return testing::AssertionSuccess();
}

long StormActions(long plain, long sanitized) {
    if (char const* const wanted = std::getenv("MIREL_STORM_ACTIONS")) return std::atol(wanted);
    return SanitizedBuild() ? sanitized : plain;
}

} // namespace mirel_test
