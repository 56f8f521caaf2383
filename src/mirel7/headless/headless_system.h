#pragma once

#include <mirel7/export.h>
#include <mirel7/system_base.h>

#include <cstdint>
#include <string>
#include <vector>

namespace mirel7::headless {

// A system without a desktop, for tests and rendering to files: a virtual clock that moves only when told,
// and a pointer, DPI scale, palette and clipboard that the test sets.
class MIREL7_API CHeadlessSystem : public CSystemBase {
public:
    CHeadlessSystem();
    ~CHeadlessSystem() override;

    IClipboard* GetClipboard() override { return &m_clipboard; }
    double GetDPIScale() const override { return m_dpiScale; }

    // Moves the clock by `ms`, ticking every timer that falls due on the way, at its due time, in order.
    void Advance(int ms);
    std::int64_t GetTime() const { return m_now; }

    void SetDPIScale(double scale) { m_dpiScale = scale; }
    void SetCursorPosition(point<int> position) { m_pointer = position; }

    // Nothing is started without a desktop: the addresses asked for are kept, in order.
    void OpenLink(std::string const& address) override { m_openedLinks.push_back(address); }
    std::vector<std::string> const& GetOpenedLinks() const { return m_openedLinks; }

protected:
    point<int> QueryPointer() const override { return m_pointer; }
    std::int64_t Now() const override { return m_now; }

private:
    class CClipboard : public IClipboard {
    public:
        void SetText(std::string const& text) override { m_text = text; }
        std::string GetText() const override { return m_text; }

    private:
        std::string m_text;
    };

    CClipboard m_clipboard;
    std::int64_t m_now = 0;
    double m_dpiScale = 1.0;
    point<int> m_pointer;
    std::vector<std::string> m_openedLinks;
};

} // namespace mirel7::headless
