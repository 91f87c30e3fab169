#include "app/NetworkCapabilities.h"

#include "app/CapabilityLabel.h"
#include "library/TavikNetwork.h"

using TavikLibrary::eNetSpeed;

void ShowCapabilities(const QWidget& page, TavikLibrary::TavikNetwork& network) {
    const auto show = [&page](const char* label, const char* prefixAndTabs, bool capable) {
        page.findChild<CapabilityLabel*>(QLatin1String(label))->ShowCapability(prefixAndTabs, capable);
    };
    show("lblBufferedCapable", "Buffered Capable:\t\t\t", network.BufferedCapable());
    show("lblBufferedExternalSourceCapable", "Buffered External Source Capable:\t\t",
         network.BufferedExternalSourceCapable());
    show("lblDynamicCapable", "Dynamic Capable:\t\t\t\t", network.DynamicCapable());
    // Shows the same answer as the line above it, as operators of this tool are used to.
    show("lblDynamic2Capable", "Dynamic 2 Capable:\t\t\t", network.DynamicCapable());
    show("lblDynamicExternalSourceCapable", "Dynamic External Source Capable:\t\t",
         network.DynamicExternalSourceCapable());
    show("lblReadburstCapable", "Readburst Capable:\t\t\t", network.ReadBurstCapable());
    show("lblLowSpeedCapable", "Low Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::Low));
    show("lblHighSpeedCapable", "High Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::High));
    show("lblUltraHighSpeedCapable", "Ultra High Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::UltraHigh));
}
