#pragma once

#include <QString>
#include <QStringList>

/// A simulated bench, and the names of what the tour meets on it.
struct TourBench {
    QString text;                  ///< of the bench file
    bool someNetworkDead = false;  ///< one of the networks cannot be connected
    int network = 0;               ///< row of the network whose modules are rearranged
    int otherNetwork = 1;          ///< row of another one that can be connected
    QStringList modules;           ///< the identities listed there at first
    QString replaced;              ///< one of them, which was exchanged for another
    QString replacement;           ///< and the one that stands in its place
    QStringList announced;         ///< those that announce themselves in a notify run
    double announcedWithin = 10.0; ///< seconds
    QString wired;                 ///< one that is on the wire only
    QString speed;                 ///< one that all of them can work at
    int shown = 0;                 ///< row of the network whose modules are visited
    QString networkName;           ///< its name
    QString probe;                 ///< the probe there that is read and set
    QString airGauge;              ///< the air gauge there that is configured and mastered
    QStringList visited;           ///< the modules there whose pages are shown
    QString buffered;              ///< the module there that is collected in buffered mode
    QString collected;             ///< a module there that is collected in dynamic mode
    QString master;                ///< an encoder interface there that triggers the modules before it
    int syncs = 0;                 ///< how many of them a collection there takes
    QString linearEncoder;         ///< the linear encoder there whose reference mark is searched
    QString wireless;              ///< the wireless connection module there, with tools in slots 1 and 2
    QString freeTool;              ///< a single-channel hand tool that is in no slot yet
};

/// Few modules, so that the tour makes few calls.
TourBench SmallTourBench();
/// One module of a kind ("QTA", "SWAX2", ...), for the tour of its panels.
TourBench PanelTourBench(const QString& kind);
/// One wireless connection module and few hand tools.
TourBench WirelessTourBench();
/// Few modules, with what one of the acquisition modes needs and nothing else.
TourBench DifferenceTourBench();
TourBench ReferenceMarkTourBench();
TourBench BufferedTourBench();
TourBench DynamicTourBench();
/// The bench that is compiled into the simulated library.
TourBench DefaultTourBench();
