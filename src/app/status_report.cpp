#include "app/status_report.h"

#include "console/frm_media.h"
#include "console/holders.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace tandrel
{

namespace
{

long inUs(TickTimes::Duration duration)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(duration).count();
}

long inMs(double seconds) { return std::lround(seconds * 1000); }

/// A name may hold the mark between two fields.
std::string inOneField(const std::string& name)
{
    std::string field;
    for (const char letter : name) {
        if (letter == '\t')
            field += "\\t";
        else if (letter == '\\')
            field += "\\\\";
        else
            field += letter;
    }
    return field;
}

void writeTable(MciService& media, long paints, const TickTimes& ticks, const std::string& path)
{
    const std::string beside = path + ".new";
    std::ofstream file(beside, std::ios::trunc);
    for (const DeviceReport& row : media.report()) {
        file << inOneField(row.alias) << '\t' << row.facts.width << '\t' << row.facts.height << '\t'
             << inMs(row.facts.length.value_or(0)) << '\t' << inMs(row.reading.seconds) << '\t' << row.counts.shown
             << '\t' << row.counts.dropped << '\t' << row.counts.eased << '\n';
    }
    if (Loaded<class frmMedia>()) {
        const class frmMedia& console = frmMedia();
        file << "# console\t" << console.lblCurTime.caption() << '\t' << console.lblDuration.caption() << '\t'
             << console.SeekSlider.value() << '\t' << console.SeekSlider.maximum() << '\t'
             << inOneField(console.lblTitleBar.caption()) << '\n';
    }
    file << "# paints\t" << paints << '\n';
    for (const TickTimes::Row& row : ticks.rows())
        file << "# ticks\t" << row.timer << '\t' << row.count << '\t' << inUs(row.whole) << '\t' << inUs(row.median)
             << '\t' << inUs(row.percentile99) << '\t' << inUs(row.longest) << '\n';
    file.close();
    std::rename(beside.c_str(), path.c_str());
}

} // namespace

void writeStatusReport(MciService& media, long paints, const TickTimes& ticks)
{
    if (const char* path = std::getenv("TANDREL_REPORT"))
        writeTable(media, paints, ticks, path);
}

} // namespace tandrel
