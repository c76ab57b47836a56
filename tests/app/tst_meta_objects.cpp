// SPDX-License-Identifier: GPL-3.0-or-later
// The methods of both windows in their order, and what their signals are connected to.
#include "support/WindowTest.h"

namespace {

QStringList ownMethods(const QMetaObject& object)
{
    QStringList methods;
    for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
        const QMetaMethod method = object.method(i);
        const char* const kind = method.methodType() == QMetaMethod::Signal ? "signal "
            : method.methodType() == QMetaMethod::Slot                      ? "slot "
                                                                            : "other ";
        methods.append(kind + QString::fromLatin1(method.methodSignature()));
    }
    return methods;
}

bool allReturnNothingAndArePublic(const QMetaObject& object)
{
    for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
        const QMetaMethod method = object.method(i);
        if (method.returnType() != QMetaType::Void || method.access() != QMetaMethod::Public)
            return false;
    }
    return true;
}

// Gives access to a protected member of any object.
struct Receivers : QObject {
    static int count(const QObject* object, const char* signal)
    {
        return (object->*&Receivers::receivers)(signal);
    }
};

} // namespace

class TestMetaObjects : public WindowTest {
    Q_OBJECT

private slots:
    // Qt writes qreal as double and qint32 as int.
    void mainWindow_hasTheseFifteenMethods_whenListed()
    {
        QCOMPARE(ownMethods(MainWindow::staticMetaObject),
            QStringList({"signal soundPlaying(int)", "signal stateChanged(QAudio::State)",
                "signal doneDataCollection(double,double,int,double)",
                "slot on_pushButtonView_clicked()", "slot on_pushButtonGo_clicked()",
                "slot updateMainwindow(int)", "slot playOneSound()", "slot doNothing()",
                "slot handleStateChanged(QAudio::State)",
                "slot on_comboBoxSesType_currentIndexChanged(int)",
                "slot on_comboBoxSoundType_currentIndexChanged(int)",
                "slot on_comboBoxMainParameter_currentIndexChanged(int)",
                "slot on_lineEditSubCode_textChanged(QString)",
                "slot on_lineEditSesNum_textChanged(QString)", "slot refreshMainWindow()"}));
        QVERIFY(allReturnNothingAndArePublic(MainWindow::staticMetaObject));
    }

    void subjectWindow_hasTheseSevenMethods_whenListed()
    {
        QCOMPARE(ownMethods(SubjectWindow::staticMetaObject),
            QStringList({"signal subjectResponded(int)", "signal subjectWindowClosed()",
                "slot on_pushButtonIAmReady_clicked()", "slot updateSubjectWindow(int)",
                "slot on_pushButtonChoice2_clicked()", "slot on_pushButtonChoice3_clicked()",
                "slot finishExperiment(double,double,int,double)"}));
        QVERIFY(allReturnNothingAndArePublic(SubjectWindow::staticMetaObject));
    }

    void windows_haveNothingElse_whenListed()
    {
        for (const QMetaObject* object :
            {&MainWindow::staticMetaObject, &SubjectWindow::staticMetaObject}) {
            QCOMPARE(QString(object->superClass()->className()), QString("QMainWindow"));
            QCOMPARE(object->propertyCount(), object->propertyOffset());
            QCOMPARE(object->enumeratorCount(), object->enumeratorOffset());
            QCOMPARE(object->constructorCount(), 0);
        }
    }

    void audioState_isAMetaType_whenTheMethodsAreAsked()
    {
        const QMetaObject& object = MainWindow::staticMetaObject;
        for (const int index : {1, 8}) {
            const QMetaMethod method = object.method(object.methodOffset() + index);
            QCOMPARE(method.parameterType(0), qMetaTypeId<QAudio::State>());
        }
    }

    void signal_hasOneReceiver_whenConnectedInTheConstructor_data()
    {
        addColumns<QString, QByteArray>("object", "signal");
        const auto row = [](const char* object, const char* signal) {
            QTest::newRow(object) << QString(object) << QByteArray(signal);
        };
        row("pushButtonView", SIGNAL(clicked()));
        row("pushButtonGo", SIGNAL(clicked()));
        row("pushButtonQuit", SIGNAL(clicked()));
        row("comboBoxSesType", SIGNAL(currentIndexChanged(int)));
        row("comboBoxSoundType", SIGNAL(currentIndexChanged(int)));
        row("comboBoxMainParameter", SIGNAL(currentIndexChanged(int)));
        row("lineEditSubCode", SIGNAL(textChanged(QString)));
        row("lineEditSesNum", SIGNAL(textChanged(QString)));
    }

    void signal_hasOneReceiver_whenConnectedInTheConstructor()
    {
        QFETCH(QString, object);
        QFETCH(QByteArray, signal);
        const MainWindow window;
        QCOMPARE(Receivers::count(window.findChild<QObject*>(object), signal.constData()), 1);
    }

    void timer_drivesOneSlot_whenTheWindowIsMade()
    {
        MainWindow window;
        QCOMPARE(Receivers::count(Probe::timerPlay(window), SIGNAL(timeout())), 1);
    }

    void otherFields_haveNoReceiver_whenTheWindowIsMade()
    {
        const MainWindow window;
        const QStringList connected({"lineEditSubCode", "lineEditSesNum"});
        for (const QLineEdit* field : window.findChildren<QLineEdit*>()) {
            if (!connected.contains(field->objectName()))
                QCOMPARE(Receivers::count(field, SIGNAL(textChanged(QString))), 0);
        }
        for (const QCheckBox* box : window.findChildren<QCheckBox*>()) {
            QCOMPARE(Receivers::count(box, SIGNAL(clicked())), 0);
            QCOMPARE(Receivers::count(box, SIGNAL(toggled(bool))), 0);
        }
    }

    void windowsSignals_haveNoReceiver_whenNoRunWasStarted()
    {
        const MainWindow window;
        QCOMPARE(Receivers::count(&window, SIGNAL(soundPlaying(int))), 0);
        QCOMPARE(Receivers::count(&window, SIGNAL(stateChanged(QAudio::State))), 0);
        QCOMPARE(
            Receivers::count(&window, SIGNAL(doneDataCollection(qreal, qreal, qint32, qreal))), 0);
    }
};

QUORIN_TEST(TestMetaObjects);
#include "tst_meta_objects.moc"
