#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/types.h>

#include <string>

namespace mirel7 {

class ILock;
class IRasterPicture;
class IRunner;
class ISysPalette;
class ISysTimer;

// The desktop as a whole: pointer, clipboard, measures, and the factories of the objects that are not
// tied to one window. The current one is reached through GetCurrentSystem(), and everything that uses it
// does nothing, or answers neutrally, when there is none.
class MIREL7_API ISystem {
public:
    class MIREL7_API ICursorState {
    public:
        virtual ~ICursorState();
        // In screen pixels.
        virtual point<int> GetPosition() const = 0;
    };

    class MIREL7_API IClipboard {
    public:
        virtual ~IClipboard();
        virtual void SetText(std::string const& text) = 0;
        virtual std::string GetText() const = 0;
    };

    enum Metric {
        // The side of a check box's image.
        MetricCheckSize = 1,
        // The time between the clicks of a double click, in milliseconds.
        MetricDoubleClickTime = 2,
        MetricHoverTime = 3,
    };

    virtual ~ISystem();

    virtual ICursorState* GetCursorState() = 0;
    virtual IClipboard* GetClipboard() = 0;
    // In pixels, already scaled for the display; 0 for an unknown index.
    virtual int GetMetric(int index) const = 0;
    // 1.0 for a display of 96 dots per inch.
    virtual double GetDPIScale() const = 0;
    virtual ISysPalette* GetPalette() const = 0;
    virtual font GetDefaultFont() const = 0;

    virtual mirel_ptr<ISysTimer> CreateTimer(int intervalMs = 0, bool active = false) = 0;
    virtual mirel_ptr<IRasterPicture> CreateRasterPicture(int width, int height) = 0;
    virtual mirel_ptr<IRunner> CreateRunner() = 0;
    virtual mirel_ptr<ILock> CreateLock() = 0;

    // Opens the address with the desktop's handler for it, without waiting.
    virtual void OpenLink(std::string const& address) = 0;
};

MIREL7_API ISystem* GetCurrentSystem();
// Installs the current system, or none with null. A system installs itself when made and leaves when it
// dies, if it is still the current one.
MIREL7_API void SetCurrentSystem(ISystem* system);

// Bit 0 lets sizes given in pixels grow with the display's scale. Set by default.
MIREL7_API int GetDPIAutoScale();
MIREL7_API void SetDPIAutoScale(int flags);

// The current system's default font, or a font of default values without a system.
MIREL7_API font GetDefaultGUIFont();

} // namespace mirel7
