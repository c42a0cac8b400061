// Writes two sets of controller binary sampling logs (SV_SA_01.LOG sensor
// values, 02 state log, 03 parameters, 04 card parameters) into
// <folder>/ventimar-log and <folder>/ventimar-log-overflow:
//   ventimar-log           two weeks of 10-minute rows; the ring has wrapped,
//                          so the oldest row lies in the middle of the block;
//   ventimar-log-overflow  the controller firmware's counter overflow: the
//                          header counts only the rows after the start row,
//                          although the rows before it hold the same recording.
#include "logwriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cmath>
#include <cstdio>

namespace {

constexpr quint32 kNoData = 0xBAADF00Du;
constexpr qint32 kCapacity = 2015;  // 2016 rows: 14 days of 10 minutes
constexpr qint32 kInterval = 600;
constexpr quint32 kFirstRowTime = 1761955200;  // 2025-11-01 00:00 UTC
constexpr quint32 kTimeCorrection = 3600;

// A small deterministic noise source.
class Noise
{
public:
    double next()
    {
        state = state * 1664525u + 1013904223u;
        return double(state >> 8) / double(1u << 24) - 0.5;
    }

private:
    quint32 state = 20251101u;
};

// Temperature (°C) and relative humidity (%) of the four places at sample n.
struct Climate {
    double temperature[4];
    double humidity[4];
};

Climate climateAt(qint64 n, Noise &noise)
{
    const double day = 2 * M_PI * double(n) / 144.0;
    Climate c;
    c.temperature[0] = 6 + 5 * std::sin(day - 1.9) + noise.next();
    c.humidity[0] = 82 - 12 * std::sin(day - 1.9) + 3 * noise.next();
    for (int p = 1; p < 4; ++p) {
        c.temperature[p] = 11.5 + p * 0.8 + 1.2 * std::sin(day - 2.3) + 0.3 * noise.next();
        c.humidity[p] = 68 - 4 * p + 5 * std::sin(day / 3) + noise.next();
    }
    return c;
}

// Absolute humidity in g/kg at sea-level pressure.
double absoluteHumidity(double temperature, double relative)
{
    const double saturation = 6.112 * std::exp(17.62 * temperature / (243.12 + temperature));
    const double vapour = saturation * relative / 100;
    return 622 * vapour / (1013.25 - vapour);
}

qvlog::LogLayout sensorSpec()
{
    qvlog::LogLayout s;
    s.title = "SENSORWERTE";
    s.count = 12;
    s.capacity = kCapacity;
    s.interval = kInterval;
    s.timeCorrection = kTimeCorrection;
    const char *places[4] = {"Aussen", "Innen", "Zone 1", "Zone 2"};
    for (int p = 0; p < 4; ++p) {
        // Hundredths of g/kg, signed tenths of a degree, whole percent.
        s.sets[3 * p] = {QByteArray("AF ") + places[p], 2, 1, 0, 100, 0};
        s.sets[3 * p + 1] = {QByteArray("T ") + places[p], 3, 1, 0, 10, 0};
        s.sets[3 * p + 2] = {QByteArray("RF ") + places[p], 2, 0, 0, 0, 0};
    }
    s.words.fill(kNoData, (kCapacity + 1) * s.count);
    return s;
}

void writeSensorRow(qvlog::LogLayout &s, qint32 row, qint64 n, Noise &noise)
{
    const Climate c = climateAt(n, noise);
    quint32 *w = s.words.data() + row * s.count;
    for (int p = 0; p < 4; ++p) {
        w[3 * p] = quint32(std::lround(100 * absoluteHumidity(c.temperature[p], c.humidity[p])));
        w[3 * p + 1] = quint32(qint32(std::lround(10 * c.temperature[p])));
        w[3 * p + 2] = quint32(std::lround(c.humidity[p]));
    }
}

// Running flag, mode, mode detail, fault of the dehumidifier at sample n.
void writeStateRow(qvlog::LogLayout &s, qint32 row, qint64 n)
{
    const int hour = int(n / 6 % 24);
    const bool running = hour >= 6 && hour < 22;
    const int details[4] = {9, 11, 12, 20};
    quint32 *w = s.words.data() + row * s.count;
    w[0] = quint32(n);
    w[1] = running ? 1 : 0;
    w[2] = n % 144 < 100 ? 100 : 200;
    w[3] = quint32(details[n / 18 % 4]);
    w[4] = n % 997 == 500 ? 3 : 0;
}

qvlog::LogLayout stateSpec(const qvlog::LogLayout &sensor)
{
    qvlog::LogLayout s;
    s.title = "STATUS LOG";
    s.count = 5;
    s.capacity = sensor.capacity;
    s.interval = sensor.interval;
    s.timeCorrection = sensor.timeCorrection;
    s.oldestOffset = sensor.oldestOffset / sensor.count * s.count;
    s.startTime = sensor.startTime;
    s.endTime = sensor.endTime;
    s.rows = sensor.rows;
    s.words.fill(kNoData, (s.capacity + 1) * s.count);
    return s;
}

qvlog::LogLayout parameterSpec()
{
    qvlog::LogLayout s;
    s.title = "PARAMETER";
    s.count = 16;
    s.capacity = 7;
    s.interval = 86400;
    s.rows = 2;
    s.startTime = kFirstRowTime;
    // Humidity in 1/200 %, temperatures in 1/100 °C, offsets in 1/200.
    s.words = {
        0,    8000, 12000, 800, 2200, 300, 15,           200, 100,          0, 0, 0, 0, 1, 0, 0, 1, 9000, 13000, 1000,
        2400, 300,  20,    250, 150,  50,  quint32(-30), 40,  quint32(-20), 1, 2, 0};
    s.words.resize(16 * 8);
    return s;
}

qvlog::LogLayout cardSpec()
{
    qvlog::LogLayout s;
    s.title = "PARAMETER SDKARTE";
    s.count = 4;
    s.capacity = 3;
    s.interval = 86400;
    s.rows = 1;
    s.startTime = kFirstRowTime;
    s.words = {10, 0, 0, 0};  // sampling every 10 minutes
    s.words.resize(4 * 4);
    return s;
}

bool writeSet(const QString &folder, const qvlog::LogLayout &sensor, const qvlog::LogLayout &state)
{
    if (!QDir().mkpath(folder))
        return false;
    const qvlog::LogLayout logs[4] = {sensor, state, parameterSpec(), cardSpec()};
    for (int i = 0; i < 4; ++i) {
        QFile f(folder + QStringLiteral("/SV_SA_0%1.LOG").arg(i + 1));
        const QByteArray bytes = qvlog::file(logs[i]);
        if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
            return false;
    }
    return true;
}

// Ring wrapped: 1800 rows, the oldest at row 1200, so the recording runs
// from row 1200 to row 2015 and on from row 0 to row 983. Rows 984..1199
// still hold the end of an older recording. Two rows lost at a power cut.
bool writeWrapped(const QString &folder)
{
    qvlog::LogLayout sensor = sensorSpec();
    const qint32 oldest = 1200;
    const quint32 rows = 1800;
    sensor.oldestOffset = oldest * sensor.count * 4;
    sensor.rows = rows;
    sensor.startTime = kFirstRowTime;
    sensor.endTime = kFirstRowTime + (rows - 1) * kInterval;
    qvlog::LogLayout state = stateSpec(sensor);
    Noise noise;
    for (qint64 n = -216; n < qint64(rows); ++n) {
        const qint32 row = qint32((oldest + n + kCapacity + 1) % (kCapacity + 1));
        writeSensorRow(sensor, row, n, noise);
        writeStateRow(state, row, n < 0 ? n + 5000 : n);
        if (n == 700 || n == 701) {
            sensor.words[row * sensor.count] = kNoData;
            state.words[row * state.count] = kNoData;
        }
    }
    return writeSet(folder, sensor, state);
}

// Counter overflow: rows 0..1399 hold one recording, but the header names
// row 400 as the oldest and counts 1000 rows from its time on. The repair
// reads all 1400 rows from row 0 and starts 400 intervals earlier.
bool writeOverflow(const QString &folder)
{
    qvlog::LogLayout sensor = sensorSpec();
    const qint32 start = 400;
    const quint32 rows = 1000;
    sensor.oldestOffset = start * sensor.count * 4;
    sensor.rows = rows;
    sensor.startTime = kFirstRowTime + start * kInterval;
    sensor.endTime = sensor.startTime + (rows - 1) * kInterval;
    qvlog::LogLayout state = stateSpec(sensor);
    Noise noise;
    for (qint32 row = 0; row < start + qint32(rows); ++row) {
        writeSensorRow(sensor, row, row, noise);
        writeStateRow(state, row, row);
    }
    return writeSet(folder, sensor, state);
}

}  // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: quorvanta-makelogsamples <folder>\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    if (!writeWrapped(folder + QStringLiteral("/ventimar-log")) ||
        !writeOverflow(folder + QStringLiteral("/ventimar-log-overflow"))) {
        std::fprintf(stderr, "quorvanta-makelogsamples: cannot write into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
