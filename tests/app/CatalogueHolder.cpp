// SPDX-License-Identifier: GPL-3.0-or-later
// CatalogueHolder PROGRAM DATA: holds a catalogue service as the player does, says its port, and waits to be
// killed.
#include "app/CatalogueProcess.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    zib::CatalogueProcess::Options options;
    options.program = QString::fromLocal8Bit(argv[1]);
    options.dataFolder = QString::fromLocal8Bit(argv[2]);
    zib::CatalogueProcess catalogue(options);
    if (!catalogue.start())
        return 1;
    std::printf("%d\n", catalogue.port());
    std::fflush(stdout);
    return QCoreApplication::exec();
}
