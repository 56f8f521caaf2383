// The first controls a user presses: captions along every edge sizing themselves, an HTML caption with
// links, push buttons in both looks and every state, a repeat button, picture, caption, help and arrow
// buttons, check boxes, two radio groups and a titled pane. The status line at the bottom tells what
// happened.
#include "gallery.h"

#include <mirelfrw7/controls/check_box.h>
#include <mirelfrw7/controls/element_caption.h>
#include <mirelfrw7/controls/radio_group.h>
#include <mirelfrw7/controls/titled_pane.h>

#include <string>

namespace gallery {

namespace {

using namespace mirelfrw7;

class CControlsPage : public CVisualElement {
public:
    explicit CControlsPage(CVisualElement* host) : CVisualElement(host, {0, 0}, AlignClient) {
        m_status = new CCaption(this, {0, 22}, AlignBottom);
        m_status->SetTextAlign(33);
        m_status->SetCaption("Press, click a link, switch a radio button");
        BuildEdges();
        auto* body = new CVisualElement(this, {0, 0}, AlignClient);
        BuildButtons(body);
        BuildChecks(body);
        BuildTitledPane(body);
    }

private:
    void Status(std::string const& text) { m_status->SetCaption(text); }

    void BuildEdges() {
        struct SEdge {
            Alignment edge;
            char const* text;
        };
        for (SEdge e : {SEdge{AlignTop, "a caption on top, sized to its text"},
                        SEdge{AlignLeft, "left, turned"}, SEdge{AlignRight, "right, turned"}}) {
            auto* caption = new CCaption(this, {0, 0}, e.edge);
            caption->SetBkColor(_color(255, 240, 200));
            caption->SetTextLayout(true);
            caption->SetCaption(e.text);
            caption->SetAutoSize(true);
        }
        auto* links = new CCaption(this, {0, 0}, AlignTop);
        links->UseHTML(true);
        links->SetCaption("HTML with links: <a href=\"https://example.org/one\">the first</a> and "
                          "<a href=\"https://example.org/two\">the second</a>, <b>bold</b> between");
        links->SetAutoSize(true);
        links->sigLinkClicked.connect(this, &CControlsPage::OnLink);
    }

    void OnLink(std::string const& link, bool& taken) {
        Status("Link: " + link);
        taken = true;
    }

    void BuildButtons(CVisualElement* body) {
        auto* row = new CVisualElement(body, {0, 34}, AlignTop);
        char const* const names[] = {"native", "native disabled", "flat", "flat disabled", "raised"};
        for (int i = 0; i < 5; ++i) {
            auto* b = new CButton(row, {110, 0}, AlignLeft);
            b->SetCaption(names[i]);
            b->SetNativeDrawing(i < 2);
            b->SetStyle(i == 2 || i == 3 ? mirel7::BorderFlat : mirel7::BorderRaised);
            b->SetEnabled(i != 1 && i != 3);
            b->sigButtonClick.connect(this, &CControlsPage::OnButton);
        }
        auto* second = new CVisualElement(body, {0, 34}, AlignTop);
        auto* repeat = new CButton(second, {130, 0}, AlignLeft);
        repeat->SetCaption("repeat: hold me");
        repeat->SetAutoRepeat(true);
        repeat->sigButtonClick.connect(this, &CControlsPage::OnRepeat);
        auto* help = new CHelpButton(second, {0, 0}, AlignLeft);
        help->sigButtonClick.connect(this, &CControlsPage::OnButton);
        for (int type = 0; type < 4; ++type) {
            auto* arrow = new CArrowButton(second, {30, 0}, AlignLeft);
            arrow->SetArrowType(static_cast<CArrowButton::ArrowType>(type));
            arrow->sigButtonClick.connect(this, &CControlsPage::OnButton);
        }
        auto* html = new CButton(second, {200, 0}, AlignLeft);
        html->UseHTML(true);
        html->SetCaption("button with <a href=\"https://example.org/b\">a link</a>");
        html->sigLinkClicked.connect(this, &CControlsPage::OnLink);
        html->sigButtonClick.connect(this, &CControlsPage::OnButton);
    }

    void OnButton(CButton* button) {
        Status("Clicked: " +
               (button->GetCaption().empty() ? std::string("a picture or arrow") : button->GetCaption()));
    }

    void OnRepeat(CButton*) { Status("Repeat: " + std::to_string(++m_repeats)); }

    void BuildChecks(CVisualElement* body) {
        auto* row = new CVisualElement(body, {0, 90}, AlignTop);
        auto* checks = new CVisualElement(row, {160, 0}, AlignLeft);
        for (char const* text : {"check box", "another, checked"}) {
            auto* box = new CCheckBox(checks, {0, 24}, AlignTop);
            box->SetCaption(text);
            box->sigCheckChanged.connect(this, &CControlsPage::OnCheck);
        }
        static_cast<CCheckBox*>(checks->GetChildren()->GetItem(1))->SetChecked(true);
        auto* disabled = new CCheckBox(checks, {0, 24}, AlignTop);
        disabled->SetCaption("disabled");
        disabled->SetEnabled(false);
        for (CRadioGroup* group : {&m_fruit, &m_size}) {
            auto* column = new CVisualElement(row, {140, 0}, AlignLeft);
            char const* const fruit[] = {"apple", "pear", "plum"};
            char const* const sizes[] = {"small", "medium", "large"};
            for (int i = 0; i < 3; ++i) {
                auto* radio = new CCheckBoxRadio(column, group == &m_fruit ? fruit[i] : sizes[i]);
                group->Add(radio);
            }
            group->SetCurrent(0);
            group->sigCurrentChanged.connect(this, &CControlsPage::OnRadio);
        }
    }

    // A radio button drawn with the native radio pieces.
    class CCheckBoxRadio : public CRadioButton {
    public:
        CCheckBoxRadio(CVisualElement* parent, char const* text) : CRadioButton(parent, {0, 24}, AlignTop) {
            SetCaption(text);
        }
        int DrawCheckImage(IPainter* painter) override {
            int const s = CCheckBox::GetImageSize().cx;
            rectangle<int> const b = GetBounds();
            int const top = b.top + static_cast<int>(0.5 + (b.Height() - s) * 0.5);
            painter->DrawControlElement(m_checked ? IPainter::ControlRadioOn : IPainter::ControlRadioOff,
                                        b.left, top, b.left + s, top + s, GetNativeState());
            return s;
        }
    };

    void OnCheck(CCheckBox* box) { Status(box->AsString()); }

    void OnRadio(CRadioGroup* group, int current) {
        if (current >= 0) Status("Radio: " + group->GetButton(current)->GetCaption());
    }

    void BuildTitledPane(CVisualElement* body) {
        auto* pane = new CTitledPane(body, {0, 0}, AlignClient);
        pane->GetTitle().GetCaption().SetCaption("A titled pane: click inside, the title lights");
        pane->GetTitle().SetHelpId("titled-pane");
        auto* button = new CButton(pane, {0, 30}, AlignTop);
        button->SetCaption("inside the pane");
        auto* control = new CControlCaption(pane, {0, 22}, AlignBottom);
        control->GetCaption().SetCaption("a control caption: press it or its arrow");
        control->sigCaptionClick.connect(this, &CControlsPage::OnCaption);
    }

    void OnCaption(CControlCaption*) {
        Status("Caption clicked " + std::to_string(++m_captionClicks) + " times");
    }

    CCaption* m_status;
    CRadioGroup m_fruit, m_size;
    int m_repeats = 0;
    int m_captionClicks = 0;
};

void BuildControlsPage(CVisualElement* host) {
    new CControlsPage(host);
}

} // namespace

GALLERY_PAGE(130, "controls", BuildControlsPage)

} // namespace gallery
