// Writes the bundled controller CSV samples into a folder:
//   ventimar-lager.csv            six weeks of a warehouse controller: inside
//                                 and outside temperature and humidity every
//                                 10 minutes, with daily cycles, passing
//                                 weather and two sensor dropouts;
//   vaporix-keller_TS01.csv       three weeks of a cellar's sensor sampling
//   vaporix-keller_TS02.csv ...   (SENSORWERTE, twelve values every 5 minutes)
//   vaporix-keller_TS04.csv       with its state log, parameters and card
//                                 parameters.
// The output depends only on the fixed seeds below, so the committed files
// can be written again byte for byte. Times are local wall-clock texts on
// days without a daylight-saving change.
#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <cmath>
#include <cstdio>

namespace {

constexpr double kPi = 3.14159265358979323846;

// A small deterministic generator (the same numbers on every platform).
class Noise
{
public:
    explicit Noise(quint64 seed) : state(seed) {}
    double uniform()  // 0 .. 1
    {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return double(state >> 11) / double(1ULL << 53);
    }
    double centred() { return uniform() * 2 - 1; }

private:
    quint64 state;
};

// Slowly wandering weather: a sum of a few long waves with random phases.
class Weather
{
public:
    explicit Weather(Noise &noise)
    {
        for (double &p : phase)
            p = noise.uniform() * 2 * kPi;
    }
    // -1 .. 1, periods of about 2 to 9 days.
    double at(double days) const
    {
        return 0.5 * std::sin(2 * kPi * days / 9.1 + phase[0]) + 0.3 * std::sin(2 * kPi * days / 4.3 + phase[1]) +
               0.2 * std::sin(2 * kPi * days / 2.2 + phase[2]);
    }

private:
    double phase[3];
};

// Water vapour in grams per kilogram of dry air at this temperature and
// relative humidity (Magnus formula, sea-level pressure).
double absoluteHumidity(double celsius, double relative)
{
    const double saturation = 6.112 * std::exp(17.62 * celsius / (243.12 + celsius));
    const double vapour = relative / 100 * saturation;
    return 622 * vapour / (1013.25 - vapour);
}

double relativeFromAbsolute(double celsius, double gramsPerKilo)
{
    const double saturation = 6.112 * std::exp(17.62 * celsius / (243.12 + celsius));
    const double vapour = gramsPerKilo * 1013.25 / (622 + gramsPerKilo);
    return 100 * vapour / saturation;
}

QByteArray stamp(const QDate &first, int minutes)
{
    char clock[16];
    std::snprintf(clock, sizeof clock, " %02d:%02d:00", minutes / 60 % 24, minutes % 60);
    return first.addDays(minutes / 1440).toString(QStringLiteral("dd.MM.yyyy")).toLatin1() + clock;
}

QByteArray number(double v, int decimals)
{
    return QByteArray::number(v, 'f', decimals);
}

bool write(const QDir &dir, const QString &name, const QByteArray &bytes)
{
    QFile f(dir.filePath(name));
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size()) {
        QTextStream(stderr) << "cannot write " << f.fileName() << '\n';
        return false;
    }
    return true;
}

// Outside air of a day in late autumn or early spring: coldest before dawn,
// warmest mid-afternoon, humid at night.
struct Outside {
    double temperature;
    double relative;
};

Outside outsideAir(double days, double mean, const Weather &weather, Noise &noise)
{
    const double hour = std::fmod(days, 1.0) * 24;
    const double daily = std::cos(2 * kPi * (hour - 15) / 24);
    const double w = weather.at(days);
    Outside o;
    o.temperature = mean + 4 * w + 3.5 * daily + 0.15 * noise.centred();
    o.relative = qBound(35.0, 82 - 12 * daily + 8 * w + 1.5 * noise.centred(), 99.0);
    return o;
}

QByteArray warehouse()
{
    Noise noise(20241104);
    const Weather weather(noise);
    const QDate first(2024, 11, 4);
    QByteArray f = "Ventimar Lager Ost\n"
                   "Datum Uhrzeit;Temp Innen;Feuchte Innen;Temp Aussen;Feuchte Aussen;\n";
    f.reserve(1 << 18);  // appending a builder reserves exactly, so grow once up front
    double inside = 12.5;
    for (int m = 0; m < 42 * 1440; m += 10) {
        const double days = m / 1440.0;
        const Outside o = outsideAir(days, 6.5 - days * 0.08, weather, noise);
        // The hall loses heat to the outside; the heating holds 14 °C on
        // working days from 6 to 17 o'clock and 10 °C otherwise.
        const int hour = m / 60 % 24;
        const bool working = m / 1440 % 7 < 5 && hour >= 6 && hour < 17;
        const double target = working ? 14 : 10;
        inside += (o.temperature - inside) * 0.004 + (inside < target ? 0.06 : 0) + 0.01 * noise.centred();
        const double insideRelative = qBound(
            30.0,
            relativeFromAbsolute(inside, absoluteHumidity(o.temperature, o.relative) * 0.9 + 0.6) + noise.centred(),
            95.0);
        QByteArrayList row{stamp(first, m), number(inside, 2), number(insideRelative, 1), number(o.temperature, 2),
                           number(o.relative, 1)};
        // Dropouts: the outside probe on day 9 for three hours, the inside
        // humidity probe on day 23 for an afternoon.
        if (m >= 9 * 1440 + 600 && m < 9 * 1440 + 780) {
            row[3] = "";
            row[4] = "";
        }
        if (m >= 23 * 1440 + 780 && m < 23 * 1440 + 1020)
            row[2] = "---";
        f += row.join(';') + '\n';
    }
    return f;
}

// The cellar: outside air, the main room and two zones. The controller
// ventilates when the outside air is drier than the inside air.
struct Cellar {
    QByteArray sensors;
    QByteArray states;
};

Cellar cellar()
{
    Noise noise(20250303);
    const Weather weather(noise);
    const QDate first(2025, 3, 3);
    Cellar c;
    c.sensors = "SENSORWERTE\nDatum Zeit;absF A;Temp A;relF A;absF I;Temp I;relF I;absF Z1;Temp Z1;relF Z1;"
                "absF Z2;Temp Z2;relF Z2\n";
    c.states = "STATUS LOG\nDatum Zeit;Nr;Betrieb;Modus;Detail;Fehler\n";
    c.sensors.reserve(1 << 19);
    c.states.reserve(1 << 18);
    double room[3] = {9.0, 8.6, 9.4};      // temperatures of room, zone I, zone II
    double moisture[3] = {6.4, 6.7, 6.2};  // g/kg
    for (int m = 0, n = 0; m < 21 * 1440; m += 5, ++n) {
        const double days = m / 1440.0;
        const Outside o = outsideAir(days, 5.5 + days * 0.12, weather, noise);
        const double outsideAbs = absoluteHumidity(o.temperature, o.relative);
        const bool ventilating = outsideAbs < moisture[0] - 0.4 && o.temperature > 1;
        const bool fault = m >= 12 * 1440 + 300 && m < 12 * 1440 + 390;  // fan fault one night
        QByteArrayList row{stamp(first, m), number(outsideAbs, 1), number(o.temperature, 1), number(o.relative, 0)};
        for (int z = 0; z < 3; ++z) {
            const double pull = ventilating && !fault ? 0.02 : 0.003;
            room[z] += (o.temperature - room[z]) * pull * 0.3 + 0.004 * (9 - room[z]) + 0.01 * noise.centred();
            moisture[z] += (outsideAbs - moisture[z]) * pull + 0.0015 + 0.004 * noise.centred();
            const double relative = qBound(20.0, relativeFromAbsolute(room[z], moisture[z]), 99.0);
            row << number(moisture[z], 1) << number(room[z], 1) << number(relative, 0);
        }
        // The zone II probe loses contact for an hour on day 6.
        if (m >= 6 * 1440 + 480 && m < 6 * 1440 + 540)
            row[10] = row[11] = row[12] = "";
        c.sensors += row.join(';') + '\n';

        // Running, mode 100 (ventilation, detail 20) or 200 (waiting); a
        // short service stop each Monday morning.
        const bool stopped = int(days) % 7 == 0 && m % 1440 >= 420 && m % 1440 < 450;
        const QByteArray mode = ventilating ? "100" : "200";
        const QByteArray detail = ventilating ? (o.relative > 90 ? "9" : "20") : "0";
        c.states += stamp(first, m) + ';' + QByteArray::number(n) + ';' + (stopped ? "0" : "1") + ';' + mode + ';' +
                    detail + ';' + (fault ? "4" : "0") + '\n';
    }
    return c;
}

}  // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: quorvanta-makecsvsamples FOLDER\n";
        return 2;
    }
    QDir dir(QString::fromLocal8Bit(argv[1]));
    if (!dir.mkpath(QStringLiteral(".")))
        return 1;
    const Cellar c = cellar();
    const bool ok = write(dir, QStringLiteral("ventimar-lager.csv"), warehouse()) &&
                    write(dir, QStringLiteral("vaporix-keller_TS01.csv"), c.sensors) &&
                    write(dir, QStringLiteral("vaporix-keller_TS02.csv"), c.states) &&
                    write(dir, QStringLiteral("vaporix-keller_TS03.csv"),
                          "PARAMETER\nDatum Zeit;Nr;Feuchte min;Feuchte max;Temp min;Temp max;Frostschutz;Regelzeit;"
                          "Hyst ein;Hyst aus;Offs TI;Offs TA;Offs FI;Offs FA;P2;P3;P4\n"
                          "01.03.2025 10:12:00;1;55;75;4;16;2;10;1.5;0.5;0;0;0;0;1;0;2\n"
                          "03.03.2025 08:47:00;2;55;72;5;15;2;15;1.5;0.5;-0.3;0.2;1.5;-2;1;0;2\n") &&
                    write(dir, QStringLiteral("vaporix-keller_TS04.csv"),
                          "PARAMETER SDKARTE\nDatum Zeit;Intervall;Karte;Format;Frei;Frei;Frei;Frei;Frei\n"
                          "03.03.2025 08:47:00;300;1;0;0;0;0;0;0\n");
    return ok ? 0 : 1;
}
