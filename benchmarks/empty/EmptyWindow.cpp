// SPDX-License-Identifier: MIT
//
// The least that a program of this toolkit can show, for the product's start to be held against:
// one empty window with the title and the background that the benchmark waits for.

#include <QApplication>
#include <QWidget>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(u"Trovell"_s);
    window.setPalette(QPalette(QColor(0xEE, 0xEE, 0xEB)));
    window.resize(1000, 700);
    window.show();
    return QApplication::exec();
}
