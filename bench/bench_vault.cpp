// SPDX-License-Identifier: GPL-3.0-or-later
// Loads and saves a full-size vault through the real routines, yields included, and prints the
// median time of each (the tool's commands: bench_tool). Run: build/bench/bench_vault [rounds]
#include "core/VaultFile.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 21;
    QTemporaryDir dir;
    const QString path = platform::ToWindows(dir.path() + QStringLiteral("/list.dat"));

    // A few hundred entries of ordinary size, as close to the limit as they go.
    QList<Entry> entries;
    for (int i = 0;; ++i) {
        Entry e;
        e.title = "Entry number " + QByteArray::number(i);
        e.userName = "user" + QByteArray::number(i) + "@example.org";
        e.password = "pw-" + QByteArray::number(i * 7919);
        e.url = "https://www.example.org/login/" + QByteArray::number(i);
        e.note = "Note " + QByteArray::number(i);
        QList<Entry> trial = entries;
        trial.append(e);
        if (ComposeInnerText(trial).size() > MaxVaultText)
            break;
        entries.append(e);
    }
    const qsizetype textSize = ComposeInnerText(entries).size();
    const bool withYields = !qEnvironmentVariableIsSet("BENCH_NO_YIELD");
    const Yield yield = withYields ? Yield(&platform::YieldStep) : Yield();

    QList<double> loads;
    QList<double> saves;
    for (int r = 0; r < rounds; ++r) {
        QList<Entry> copy = entries;
        QElapsedTimer t;
        t.start();
        SaveVault(path, copy, yield);
        saves << t.nsecsElapsed() / 1e6;
        t.restart();
        const VaultLoad load = LoadVault(path, yield);
        loads << t.nsecsElapsed() / 1e6;
        if (load.entries.size() != entries.size())
            return 1;
    }
    std::sort(loads.begin(), loads.end());
    std::sort(saves.begin(), saves.end());
    std::printf("entries %lld, inner text %lld bytes, rounds %d, yields %s\n", static_cast<long long>(entries.size()),
        static_cast<long long>(textSize), rounds, withYields ? "on" : "off (BENCH_NO_YIELD)");
    std::printf("load median %.2f ms\nsave median %.2f ms\n", loads.at(loads.size() / 2), saves.at(saves.size() / 2));

    // The reading of a crafted file of 150,000 sections of short titles, 1 MiB: the reading is
    // linear, so it takes about what the full-size vault's reading times 32.
    QByteArray sections;
    for (int i = 0; i < 150000; ++i) {
        QByteArray title;
        for (int n = i; title.isEmpty() || n > 0; n /= 62)
            title.prepend("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"[n % 62]);
        sections += '[' + title + "]\r\n";
    }
    QList<double> parses;
    for (int r = 0; r < rounds; ++r) {
        QElapsedTimer t;
        t.start();
        if (ParseInnerText(sections).size() != 150000)
            return 1;
        parses << t.nsecsElapsed() / 1e6;
    }
    std::sort(parses.begin(), parses.end());
    std::printf("reading of 150,000 sections (%lld bytes): median %.2f ms\n", static_cast<long long>(sections.size()),
        parses.at(parses.size() / 2));

    return 0;
}
