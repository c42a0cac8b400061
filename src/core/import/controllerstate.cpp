#include "core/import/controllerstate.h"

#include "core/import/csvnumber.h"

namespace qv {

namespace {

// Field of each record member, in record order.
constexpr int kDoubleFields[11] = {2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13};
constexpr int kIntegerFields[4] = {7, 14, 15, 16};

}  // namespace

qint8 g_controllerState(quint32 a, quint32 b, qint32 c, quint32 d)
{
    qint8 state = 0;
    if (b == 100) {
        switch (c) {
        case -1:
            state = 7;
            break;
        case 9:
            state = 5;
            break;
        case 11:
            state = 2;
            break;
        case 12:
            state = 4;
            break;
        case 18:
            state = 3;
            break;
        case 20:
            state = 6;
            break;
        default:
            state = 12;
            break;
        }
    } else if (b == 200) {
        state = 11;
    }
    if (a == 0)
        state = 1;
    if (d != 0)
        state = 7;
    return state;
}

qint8 g_stateFromFields(const ByteView *fields)
{
    return g_controllerState(g_toUInt(fields[2]), g_toUInt(fields[3]), g_toInt(fields[4]), g_toUInt(fields[5]));
}

void g_storeParameterFields(modeParametersT &record, const ByteView *fields)
{
    bool ok = false;
    for (int i = 0; i < 11; ++i)
        record.parameter[i] = g_toDouble(fields[kDoubleFields[i]], &ok);
    for (int i = 0; i < 4; ++i)
        record.intParameter[i] = g_toUInt(fields[kIntegerFields[i]]);
}

void g_storeCardParameterFields(modeParametersT &record, const ByteView *fields)
{
    record.interval = g_toInt(fields[1]);
}

}  // namespace qv
