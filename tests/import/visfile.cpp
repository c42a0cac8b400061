#include "visfile.h"

namespace qvtest {

QByteArray padded(const QByteArray &text, int width)
{
    return text.leftJustified(width, ' ', true);
}

QByteArray parameterLine(const QByteArrayList &fields)
{
    QByteArrayList f = fields;
    const int used = f.join(';').size();
    f[7] += QByteArray(39 - used, '0');
    return f.join(';') + '\n';
}

QByteArray dataLine(const QByteArray &date, const QByteArray &time, const QByteArrayList &values,
                    const QByteArray &state)
{
    return date + ';' + time + ';' + values.join(';') + ';' + state + '\n';
}

VisFile::VisFile()
    : line2(padded("vaporix-VIS Kellerklima", 48) + '\n'),
      line3(padded("Keller Nord", 16) + '\n'),
      line4(padded("Software V2.14 Seriennummer 004711", 83) + '\n'),
      line5(parameterLine({"8.0", "18.5", "3.0", "55", "75", "2.5", "1.5", "0", "0", "0:10:00"})),
      line7(padded("Datum;Zeit;Temp. innen;rel. F. innen;abs. F. innen;Temp. aussen;rel. F. aussen;abs. F. aussen;"
                   "Status",
                   191) +
            '\n')
{
}

QByteArray VisFile::bytes() const
{
    return line1 + line2 + line3 + line4 + line5 + line6 + line7 + data.join();
}

}  // namespace qvtest
