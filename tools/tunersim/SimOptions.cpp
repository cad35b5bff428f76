#include "SimOptions.h"

#include <cmath>

namespace {

bool positiveNumber(const QString& text, double* value)
{
    bool ok = false;
    const double v = text.toDouble(&ok);
    if (!ok || !std::isfinite(v) || v <= 0.0)
        return false;
    *value = v;
    return true;
}

} // namespace

QString SimOptions::helpText()
{
    return QStringLiteral(
        "Usage: radio-tunersim [options]\n"
        "Simulated tuner service for the radio screen: listens on the abstract UNIX\n"
        "address @NAME, reads 8-byte command frames, sends 584-byte status records.\n"
        "\n"
        "  --name NAME         abstract socket name (default kestrelhub)\n"
        "  --region N          region 0-23 of the band table (default 12)\n"
        "  --seed N            seed of the built-in line-up (default 1)\n"
        "  --lineup FILE.csv   stations from CSV: freq,ps,pty,tp,rt,signal\n"
        "                      (a header line may name and reorder the columns;\n"
        "                      96.7 = MHz, 9670 = FM in 10 kHz, 999 = AM in kHz)\n"
        "  --rds FREQ=FILE     replay an RDS Spy log (.spy or .rds) on FREQ;\n"
        "                      repeatable\n"
        "  --rds-speed X       replay RDS groups X times faster (default 1)\n"
        "  --time-scale X      run every timer X times faster (default 1)\n"
        "  --trace             print each frame received and record sent\n"
        "  --help              this text\n"
        "\n"
        "Seek and scan stop on signals of 25 and more (100 in LOC). Auto search\n"
        "stores the six strongest stations of the band sorted by frequency and\n"
        "tunes to preset 1; unused keys get the band's lowest channel. Scan and\n"
        "preset scan stay 5 s on each station until the next command.\n");
}

bool SimOptions::parse(const QStringList& arguments)
{
    m_error.clear();
    m_help = false;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& option = arguments.at(i);
        if (option == QLatin1String("--help") || option == QLatin1String("-h")) {
            m_help = true;
            return true;
        }
        if (option == QLatin1String("--trace")) {
            trace = true;
            continue;
        }
        static const QStringList withValue = {
            QStringLiteral("--name"), QStringLiteral("--region"), QStringLiteral("--seed"),
            QStringLiteral("--lineup"), QStringLiteral("--rds"), QStringLiteral("--rds-speed"),
            QStringLiteral("--time-scale"),
        };
        if (!withValue.contains(option)) {
            m_error = QStringLiteral("unknown option %1").arg(option);
            return false;
        }
        if (i + 1 >= arguments.size()) {
            m_error = QStringLiteral("%1 needs a value").arg(option);
            return false;
        }
        const QString value = arguments.at(++i);
        bool ok = false;
        if (option == QLatin1String("--name")) {
            // sun_path holds 108 bytes, one of them the leading NUL.
            if (value.isEmpty() || value.toUtf8().size() > 107) {
                m_error = QStringLiteral("--name must be 1-107 bytes");
                return false;
            }
            name = value;
        } else if (option == QLatin1String("--region")) {
            region = value.toInt(&ok);
            if (!ok || region < 0 || region > 23) {
                m_error = QStringLiteral("--region must be 0-23, not %1").arg(value);
                return false;
            }
        } else if (option == QLatin1String("--seed")) {
            seed = value.toUInt(&ok);
            if (!ok) {
                m_error = QStringLiteral("--seed must be an unsigned number, not %1").arg(value);
                return false;
            }
        } else if (option == QLatin1String("--lineup")) {
            lineupFile = value;
        } else if (option == QLatin1String("--rds")) {
            const int eq = value.indexOf(QLatin1Char('='));
            if (eq <= 0 || eq == value.size() - 1) {
                m_error = QStringLiteral("--rds needs FREQ=FILE, not %1").arg(value);
                return false;
            }
            rdsLogs.append(qMakePair(value.left(eq), value.mid(eq + 1)));
        } else if (option == QLatin1String("--rds-speed")) {
            if (!positiveNumber(value, &rdsSpeed)) {
                m_error = QStringLiteral("--rds-speed must be a positive number, not %1").arg(value);
                return false;
            }
        } else if (!positiveNumber(value, &timeScale)) {
            m_error = QStringLiteral("--time-scale must be a positive number, not %1").arg(value);
            return false;
        }
    }
    return true;
}
