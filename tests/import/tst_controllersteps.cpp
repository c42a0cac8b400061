// Steps shared by the controller importers, driven directly on a model: the
// state mapping, the sibling paths, the sensor layout with its row rule and
// the plausibility pass.
#include "support/testsupport.h"

#include "import/controllerstate.h"
#include "import/controllersteps.h"
#include "project/fixedstring.h"

#include <QtTest>

#include <memory>

using namespace qv;

class TestControllerSteps : public QObject
{
    Q_OBJECT

private slots:
    void state_data()
    {
        QTest::addColumn<uint>("a");
        QTest::addColumn<uint>("b");
        QTest::addColumn<int>("c");
        QTest::addColumn<uint>("d");
        QTest::addColumn<int>("state");

        QTest::newRow("mode 100, other detail") << 1u << 100u << 0 << 0u << 12;
        QTest::newRow("mode 100, detail -1") << 1u << 100u << -1 << 0u << 7;
        QTest::newRow("mode 100, detail 9") << 1u << 100u << 9 << 0u << 5;
        QTest::newRow("mode 100, detail 11") << 1u << 100u << 11 << 0u << 2;
        QTest::newRow("mode 100, detail 12") << 1u << 100u << 12 << 0u << 4;
        QTest::newRow("mode 100, detail 18") << 1u << 100u << 18 << 0u << 3;
        QTest::newRow("mode 100, detail 20") << 1u << 100u << 20 << 0u << 6;
        QTest::newRow("mode 200 ignores the detail") << 5u << 200u << 9 << 0u << 11;
        QTest::newRow("other mode") << 1u << 150u << 9 << 0u << 0;
        QTest::newRow("not running overrides the mode") << 0u << 100u << 9 << 0u << 1;
        QTest::newRow("a fault overrides everything") << 0u << 200u << 9 << 3u << 7;
        QTest::newRow("a fault in mode 100") << 1u << 100u << 20 << 1u << 7;
    }

    void state()
    {
        QFETCH(uint, a);
        QFETCH(uint, b);
        QFETCH(int, c);
        QFETCH(uint, d);
        QFETCH(int, state);
        QCOMPARE(int(g_controllerState(a, b, c, d)), state);
    }

    void siblingPaths_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("siblings");

        QTest::newRow("ordinary") << QStringLiteral("/d/S_TS01.CSV")
                                  << QStringList{QStringLiteral("/d/S_TS02.CSV"), QStringLiteral("/d/S_TS03.CSV"),
                                                 QStringLiteral("/d/S_TS04.CSV")};
        QTest::newRow("lower case becomes upper case")
            << QStringLiteral("/d/s_ts01.csv")
            << QStringList{QStringLiteral("/d/s_TS02.csv"), QStringLiteral("/d/s_TS03.csv"), QStringLiteral("/d/s_TS04.csv")};
        // The replacements build on each other: a TS02 already in the path moves on as well.
        QTest::newRow("cumulative") << QStringLiteral("/ts02/a_TS01.csv")
                                    << QStringList{QStringLiteral("/ts02/a_TS02.csv"), QStringLiteral("/TS03/a_TS03.csv"),
                                                   QStringLiteral("/TS04/a_TS04.csv")};
        QTest::newRow("a later token only") << QStringLiteral("/d/a_TS03.csv")
                                            << QStringList{QStringLiteral("/d/a_TS03.csv"), QStringLiteral("/d/a_TS03.csv"),
                                                           QStringLiteral("/d/a_TS04.csv")};
        QTest::newRow("no token: the same file three times")
            << QStringLiteral("/d/sensor.csv")
            << QStringList{QStringLiteral("/d/sensor.csv"), QStringLiteral("/d/sensor.csv"),
                           QStringLiteral("/d/sensor.csv")};
    }

    void siblingPaths()
    {
        QFETCH(QString, path);
        QFETCH(QStringList, siblings);
        const std::array<QString, 3> p = g_siblingPaths(path, {"TS01", "TS02", "TS03", "TS04"});
        QCOMPARE((QStringList{p[0], p[1], p[2]}), siblings);
    }

    // Rows ticked and connected by an import of n data sets, then the sensor
    // layout: every untick of a connected row 6..11 applies the row rule.
    void sensorLayout_data()
    {
        QTest::addColumn<int>("sets");
        QTest::addColumn<QVector<uint>>("lineFlags");  // of data sets 0..15 afterwards

        // No row of 6..11 is connected: the flags stay as the import left them.
        QTest::newRow("6 sets") << 6 << QVector<uint>{2, 6, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
        QTest::newRow("7 sets") << 7 << QVector<uint>{3, 7, 1, 1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1};
        QTest::newRow("12 sets") << 12 << QVector<uint>{3, 7, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1};
    }

    void sensorLayout()
    {
        QFETCH(int, sets);
        QFETCH(QVector<uint>, lineFlags);

        auto m = std::make_unique<ChartModel>();
        m->settings.dataSetCount = sets;
        for (int i = 0; i < sets; ++i)
            g_activateImportedRow(*m, i);
        m->settings.axisMin[12] = -7;
        g_qString2Buffer(m->settings.name[12], QStringLiteral("bleibt"), kNameWidth);

        g_applySensorLayout(*m);
        const settingsT &s = m->settings;
        for (int i = 0; i < kMaxDataSets; ++i) {
            QCOMPARE(uint(s.lineFlags[i]), lineFlags[i]);
            QCOMPARE(m->row[i].enabled, i < sets);
            QCOMPARE(m->row[i].checked, i < sets && (i < 6 || i > 11));
        }
        QCOMPARE(s.flags, kFlagShowTitle | kFlagShowModeTrack);
        QCOMPARE(int(s.hasModeData), 1);
        QVERIFY(m->modeBoxVisible);
        QVERIFY(m->modeBoxChecked);
        QCOMPARE(s.dataSetCount, sets);

        // Names, units and ranges of the twelve sets are checked byte for byte by
        // the sibling import tests; what lies beyond them stays.
        QCOMPARE(QByteArray(s.name[12]), QByteArray("bleibt"));
        QV_COMPARE_DOUBLE(s.axisMin[12], -7.0);
        QCOMPARE(int(s.valueType[12]), 0);
    }

    // Two samples of twelve plausible values; sample 1 gets one value changed.
    void plausibility_data()
    {
        QTest::addColumn<int>("set");
        QTest::addColumn<double>("value");
        QTest::addColumn<QVector<int>>("invalid");  // sets whose sample 1 ends up missing

        const QVector<int> outside{0, 1, 2}, inside{3, 4, 5}, zone1{6, 7, 8}, zone2{9, 10, 11}, none;
        struct Limits {
            int set;
            double low, high;
            QVector<int> group;
        };
        const Limits limits[12] = {{0, 0.5, 50, outside}, {1, -40, 50, outside}, {2, 5, 100, outside},
                                   {3, 0.5, 50, inside},  {4, -10, 50, inside},  {5, 5, 100, inside},
                                   {6, 0.5, 50, zone1},   {7, -40, 50, zone1},   {8, 5, 100, zone1},
                                   {9, 0.5, 50, zone2},   {10, -10, 50, zone2},  {11, 5, 100, zone2}};
        for (const Limits &l : limits) {
            const QByteArray n = QByteArray::number(l.set);
            QTest::newRow(QByteArray("set " + n + " at its low limit").constData()) << l.set << l.low << none;
            QTest::newRow(QByteArray("set " + n + " below").constData()) << l.set << l.low - 0.01 << l.group;
            QTest::newRow(QByteArray("set " + n + " at its high limit").constData()) << l.set << l.high << none;
            QTest::newRow(QByteArray("set " + n + " above").constData()) << l.set << l.high + 0.01 << l.group;
        }
        // A missing value counts as above the limit and takes its own group.
        QTest::newRow("missing inside temperature") << 4 << kMissingValue << inside;
        QTest::newRow("missing zone II humidity") << 11 << kMissingValue << zone2;
        // A sample whose data set 0 value is missing is not checked at all.
        QTest::newRow("set 0 missing: nothing else checked") << 0 << kMissingValue << QVector<int>{0};
    }

    void plausibility()
    {
        QFETCH(int, set);
        QFETCH(double, value);
        QFETCH(QVector<int>, invalid);

        const double plausible[12] = {8.5, 10.5, 60, 9, 21, 55, 9.5, 20, 50, 9.1, 19.5, 48};
        auto m = std::make_unique<ChartModel>();
        m->settings.flags |= kFlagShowModeTrack;
        m->settings.dataSetCount = 12;
        for (int i = 0; i < 12; ++i) {
            _chartDataType &d = *m->data(i);
            d.count = 2;
            d.value[0] = d.value[1] = plausible[i];
        }
        m->data(set)->value[1] = value;
        // With set 0 missing, an implausible zone value at the same sample stays.
        const bool skipped = set == 0 && g_isMissing(value);
        if (skipped)
            m->data(7)->value[1] = 99;

        g_checkPlausibility(*m);
        for (int i = 0; i < 12; ++i) {
            const double expected = invalid.contains(i) ? kMissingValue
                                  : i == set            ? value
                                  : skipped && i == 7    ? 99
                                                        : plausible[i];
            QV_COMPARE_DOUBLE(m->data(i)->value[1], expected);
            QV_COMPARE_DOUBLE(m->data(i)->value[0], plausible[i]);
        }
    }

    void plausibilityNeedsStateTrack()
    {
        auto m = std::make_unique<ChartModel>();
        m->data(0)->count = 3;
        m->data(0)->value[1] = 99;  // implausible, and sets 1..11 hold zeros
        g_checkPlausibility(*m);
        QV_COMPARE_DOUBLE(m->data(0)->value[1], 99.0);
        QV_COMPARE_DOUBLE(m->data(6)->value[1], 0.0);

        // With the track shown, stores beyond the data-set count are checked too
        // (their zeros are implausible), up to the sample count of data set 0.
        m->settings.flags |= kFlagShowModeTrack;
        m->data(0)->value[0] = m->data(0)->value[2] = 10;
        m->data(1)->value[0] = m->data(1)->value[2] = 10;
        m->data(2)->value[0] = m->data(2)->value[2] = 50;
        g_checkPlausibility(*m);
        const double outside[3] = {10, 10, 50};
        for (int k = 0; k < 3; ++k) {
            for (int i = 0; i < 12; ++i)
                QV_COMPARE_DOUBLE(m->data(i)->value[k], (k == 1 || i >= 3) ? kMissingValue : outside[i]);
        }
        QV_COMPARE_DOUBLE(m->data(11)->value[3], 0.0);
    }
};

QTEST_GUILESS_MAIN(TestControllerSteps)
#include "tst_controllersteps.moc"
