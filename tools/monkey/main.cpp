#include "tools/monkey/Campaign.h"
#include "tools/monkey/Play.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

/// The campaign needs no display; those that play make an application of their own.
int main(int argc, char* argv[]) {
    try {
        Options options;
        {
            const QCoreApplication application(argc, argv);
            options = OptionsOf(QCoreApplication::arguments());
            if (options.replay.isEmpty() && options.sessions == 0) {
                return RunCampaign(options);
            }
        }
        return PlayHere(argc, argv, options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
