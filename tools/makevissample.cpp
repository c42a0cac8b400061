// Writes the bundled vaporix-VIS sample: five weeks of a wine cellar in
// autumn, one line every 10 minutes, with the device's fixed-width header and
// every state it reports (frost guard, too cold or too warm outside, good
// conditions, airing on and off, and short dropouts of both sensors).
//   quorvanta-makevissample OUTPUT.csv
// The output depends only on the fixed seed, so it is the same on every run.
// The dates avoid a daylight-saving change, as the device writes wall-clock
// time.
#include <QCoreApplication>
#include <QDate>
#include <QFile>

#include <cmath>
#include <cstdio>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kDays = 35;
constexpr int kStepMinutes = 10;

class Noise
{
public:
    double centred()  // -1 .. 1
    {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return double(state >> 11) / double(1ULL << 52) - 1;
    }

private:
    quint64 state = 20240916;
};

// Grams of water per kilogram of dry air (Magnus formula, sea-level pressure).
double absoluteHumidity(double celsius, double relative)
{
    const double vapour = relative / 100 * 6.112 * std::exp(17.62 * celsius / (243.12 + celsius));
    return 622 * vapour / (1013.25 - vapour);
}

double relativeHumidity(double celsius, double grams)
{
    const double vapour = grams * 1013.25 / (622 + grams);
    return 100 * vapour / (6.112 * std::exp(17.62 * celsius / (243.12 + celsius)));
}

QByteArray padded(const char *text, int width)
{
    return QByteArray(text).leftJustified(width, ' ', true);
}

QByteArray header()
{
    QByteArray h = "\n";
    h += padded("vaporix-VIS Kellerklima", 48) + '\n';
    h += padded("Weinkeller Ost", 16) + '\n';
    h += padded("Firmware 3.07  Seriennr. 0042-1187  Speicher 12 %", 83) + '\n';
    // min./max. temperature inside, frost guard, min./max. humidity inside,
    // hysteresis on/off, two unused fields (the first fills the line to its
    // width) and the interval.
    h += "8.0;16.0;2.0;55;70;1.5;1.0;00;0;0:10:00\n";
    h += "Aufzeichnung ab 16.09.2024 00:00\n";
    h += padded("Datum;Zeit;Temp. innen;rel. F. innen;abs. F. innen;Temp. aussen;rel. F. aussen;abs. F. aussen;"
                "Zustand",
                191) +
         '\n';
    return h;
}

}  // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: quorvanta-makevissample OUTPUT.csv\n");
        return 2;
    }
    QByteArray out = header();
    Noise noise;
    double inside = 11.5;      // °C
    double insideWater = 6.4;  // g/kg
    double front = 0;          // passing weather, -1 .. 1
    const QDate first(2024, 9, 16);
    const int steps = kDays * 24 * 60 / kStepMinutes;
    char line[160];
    for (int k = 0; k < steps; ++k) {
        const double days = double(k) * kStepMinutes / 1440.0;
        front = 0.995 * front + 0.03 * noise.centred();
        // Late summer turning into autumn: colder weeks, daily swing, fronts.
        const double outside = 15.0 - days * 0.33 + 4.0 * std::sin(2 * kPi * (days - 0.375)) + 6.0 * front;
        const double outsideRelative = qBound(35.0, 82 - 14 * std::sin(2 * kPi * (days - 0.375)) + 10 * front, 100.0);
        const double outsideWater = absoluteHumidity(outside, outsideRelative);
        const double insideRelative = relativeHumidity(inside, insideWater);

        const char *state;
        const bool sensorInFault = k % 2900 >= 1500 && k % 2900 < 1506;
        const bool sensorOutFault = k % 3700 >= 2200 && k % 3700 < 2204;
        bool airing = false;
        if (sensorInFault)
            state = "ERR INNEN ";
        else if (sensorOutFault)
            state = "ERR AUSSEN";
        else if (outside < 2.0)
            state = "FROST     ";
        else if (outside < inside - 6.0)
            state = "ZU KALT   ";
        else if (outside > 16.0)
            state = "ZU WARM   ";
        else if (insideRelative <= 70 && insideRelative >= 55)
            state = "OPTIMAL   ";
        else if ((airing = outsideWater < insideWater - 1.0))
            state = "L\xDC"
                    "FTEN EIN";
        else
            state = "L\xDC"
                    "FTEN AUS";

        // The cellar follows the weather slowly; airing exchanges its air.
        const double exchange = airing ? 0.08 : 0.004;
        inside += (outside - inside) * exchange * 0.3 + 0.002 * (12.0 - inside);
        insideWater += (outsideWater - insideWater) * exchange + 0.002;  // moisture from the walls

        const int minutes = k * kStepMinutes;
        const QDate day = first.addDays(minutes / 1440);
        const int clock = minutes % 1440;
        const double noiseIn = 0.05 * noise.centred();
        if (sensorInFault) {
            std::snprintf(line, sizeof line, "%02d.%02d.%04d;%02d:%02d; --.-;---;--.-;%5.1f;%3.0f;%4.1f;%s\n",
                          day.day(), day.month(), day.year(), clock / 60, clock % 60, outside, outsideRelative,
                          outsideWater, state);
        } else if (sensorOutFault) {
            std::snprintf(line, sizeof line, "%02d.%02d.%04d;%02d:%02d;%5.1f;%3.0f;%4.1f; --.-;---;--.-;%s\n",
                          day.day(), day.month(), day.year(), clock / 60, clock % 60, inside + noiseIn, insideRelative,
                          insideWater, state);
        } else {
            std::snprintf(line, sizeof line, "%02d.%02d.%04d;%02d:%02d;%5.1f;%3.0f;%4.1f;%5.1f;%3.0f;%4.1f;%s\n",
                          day.day(), day.month(), day.year(), clock / 60, clock % 60, inside + noiseIn, insideRelative,
                          insideWater, outside, outsideRelative, outsideWater, state);
        }
        out += line;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::WriteOnly) || file.write(out) != out.size()) {
        std::fprintf(stderr, "cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
