// An ordinary Qt window: qt-client --title TEXT.

#include <QApplication>
#include <QWidget>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(application.arguments().value(2));
    window.setGeometry(120, 140, 420, 310);
    window.show();
    return application.exec();
}
