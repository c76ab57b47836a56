// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-demo from its command line to its exit status.
#include "demo/Demonstration.h"

#include <QApplication>
#include <QLoggingCategory>

#include <cstdlib>

namespace {

int failed(const QString& why)
{
    QTextStream(stderr) << "quorin-demo: " << why << Qt::endl;
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    // The windows' notes of every trial would stand between the lines of the report.
    QLoggingCategory::setFilterRules("default.debug=false");

    QString errorText;
    const DemoOptions options = demoOptions(QApplication::arguments(), errorText);
    if (!errorText.isEmpty()) {
        return failed(errorText);
    }
    Demonstration demonstration(options);
    return demonstration.run() ? EXIT_SUCCESS : failed(demonstration.errorText());
}
