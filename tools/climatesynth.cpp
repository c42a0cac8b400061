#include "climatesynth.h"

#include "core/model/fixedstring.h"

#include <cmath>
#include <cstdint>

namespace qv {

namespace {

// Small deterministic generator so the sample is the same on every machine.
class Random
{
public:
    explicit Random(quint32 seed) : state(seed * 2654435761u + 1u) {}
    double uniform()  // [0, 1)
    {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return double(state >> 11) / double(std::uint64_t(1) << 53);
    }
    double noise(double amplitude) { return (uniform() * 2.0 - 1.0) * amplitude; }

private:
    std::uint64_t state;
};

struct Channel {
    const char *name;
    const char *unit;  // Latin-1
    int decimals;
    double base, daily, drift, noise, axisMin, axisMax;
};

const Channel kChannels[] = {
    {"Temp In",
     "\xB0"
     "C",
     1, 11.5, 0.6, 1.5, 0.05, 0, 25},
    {"Humidity In", "%rH", 1, 72.0, 3.0, 8.0, 0.3, 40, 100},
    {"Abs. Humidity In", "g/m\xB3", 2, 7.3, 0.3, 0.8, 0.03, 0, 15},
    {"Temp Out",
     "\xB0"
     "C",
     1, 6.0, 5.0, 4.0, 0.2, -15, 30},
    {"Humidity Out", "%rH", 1, 80.0, 12.0, 10.0, 1.0, 20, 100},
    {"Abs. Humidity Out", "g/m\xB3", 2, 6.1, 0.6, 1.0, 0.05, 0, 15},
    {"Temp Zone 1",
     "\xB0"
     "C",
     1, 12.5, 0.8, 1.2, 0.05, 0, 25},
    {"Humidity Zone 1", "%rH", 1, 70.0, 3.5, 6.0, 0.3, 40, 100},
    {"Temp Zone 2",
     "\xB0"
     "C",
     1, 10.8, 0.7, 1.4, 0.05, 0, 25},
    {"Humidity Zone 2", "%rH", 1, 75.0, 3.0, 7.0, 0.3, 40, 100},
    {"Temp Supply Air",
     "\xB0"
     "C",
     1, 14.0, 4.0, 3.0, 0.2, -10, 35},
    {"Humidity Supply Air", "%rH", 1, 65.0, 8.0, 8.0, 0.8, 20, 100},
    {"Temp Exhaust Air",
     "\xB0"
     "C",
     1, 12.0, 1.0, 1.5, 0.1, 0, 25},
    {"Humidity Exhaust", "%rH", 1, 71.0, 4.0, 6.0, 0.4, 40, 100},
    {"Dew Point In",
     "\xB0"
     "C",
     1, 6.5, 0.6, 1.5, 0.05, -5, 20},
    {"Dew Point Out",
     "\xB0"
     "C",
     1, 3.0, 3.0, 3.0, 0.2, -15, 20},
};

double roundTo(double v, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(v * scale) / scale;
}

}  // namespace

void g_synthesiseRecording(ChartModel &model, const SynthOptions &o)
{
    settingsT &s = model.settings;
    const int sets = qBound(1, o.dataSets, kMaxDataSets);
    const int samples = g_sampleCount(o.samples);
    Random random(o.seed);
    const double pi = 3.14159265358979323846;
    const qint64 step = qint64(o.intervalSeconds) * 1000;

    g_char2Buffer(s.description, "Cellar Weinberg 3 - Climate November", kDescriptionWidth);
    s.dataSetCount = sets;
    s.sampleInterval = o.intervalSeconds;
    for (int i = 0; i < sets; ++i) {
        const Channel &c = kChannels[i];
        g_char2Buffer(s.name[i], c.name, kNameWidth);
        g_char2Buffer(s.unit[i], c.unit, kUnitWidth);
        s.decimals[i] = quint8(c.decimals);
        s.valueType[i] = 8;
        s.axisMin[i] = c.axisMin;
        s.axisMax[i] = c.axisMax;

        _chartDataType &d = *model.data(i);
        d.count = samples;
        double walk = 0.0;
        for (int k = 0; k < samples; ++k) {
            const qint64 t = o.startMs + qint64(k) * step;
            const double dayPhase = double(t % 86400000) / 86400000.0;
            const double days = double(k) * o.intervalSeconds / 86400.0;
            walk = 0.995 * walk + random.noise(c.drift * 0.05);
            double v = c.base + c.daily * std::sin(2 * pi * (dayPhase - 0.375)) +
                       c.drift * std::sin(2 * pi * days / 9.0) + walk + random.noise(c.noise);
            d.time[k] = t;
            d.value[k] = random.uniform() < o.gapRate ? kMissingValue : roundTo(v, c.decimals);
        }
    }
    if (samples > 0) {
        s.firstTime = model.data(0)->time[0];
        s.lastTime = model.data(0)->time[samples - 1];
    }
    s.rangeBegin = s.viewBegin = s.firstTime;
    s.rangeEnd = s.viewEnd = s.lastTime;
    model.recountRange();
    model.activateRows();
}

void g_synthesiseMaximum(ChartModel &model, int samples)
{
    SynthOptions options;
    options.dataSets = kMaxDataSets;
    options.samples = samples;
    options.intervalSeconds = 60;
    g_synthesiseRecording(model, options);
}

}  // namespace qv
