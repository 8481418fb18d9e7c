// The dialogs of Qt 5, opened on command as bench/served_openings opens ours, so that both can be
// opened in turn on one display:
//
//   > colour
//   < 41.3 3.2
//
// Says "ready" once the owner's window has been painted. Each dialog is the toolkit's own one, made,
// run modally and destroyed within the measured time, and accepted as soon as it has been painted
// whole: when its window is exposed, it has been painted, and the event loop is about to wait because
// nothing is left to do. Answers with the milliseconds from the call to that, and from the answer to
// the return. With --look each dialog must show something on the screen. Status 2 for a name that it
// does not know and for a dialog that shows nothing.
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QColorDialog>
#include <QElapsedTimer>
#include <QFontDialog>
#include <QInputDialog>
#include <QMetaObject>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

namespace {

constexpr QRect kOwnerPlace(300, 200, 400, 300);
constexpr int kFailed = 2;

/// Answers the modal dialog of this thread once it has been painted.
class Answerer : public QObject {
public:
  /// `look`: each dialog must show something on the screen; looking there takes its time.
  explicit Answerer(bool look) : m_look(look) {
    qApp->installEventFilter(this);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { OnIdle(); });
  }

  struct Times {
    double openToPaint = 0.0;
    double confirmToReturn = 0.0;
  };

  Times Run(const std::function<void()>& call) {
    m_painted = m_answered = false;
    m_clock.start();
    call();
    const qint64 returned = m_clock.nsecsElapsed();
    if (!m_answered) {
      throw std::runtime_error("a dialog closed before it was painted");
    }
    constexpr double kNanoseconds = 1e6;  // in a millisecond
    return {static_cast<double>(m_paintedAt) / kNanoseconds,
            static_cast<double>(returned - m_paintedAt) / kNanoseconds};
  }

protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object == QApplication::activeModalWidget()) {
      m_painted = true;
    }
    return false;
  }

private:
  void OnIdle() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (m_answered || !m_painted || dialog == nullptr || dialog->windowHandle() == nullptr ||
        !dialog->windowHandle()->isExposed()) {
      return;
    }
    m_paintedAt = m_clock.nsecsElapsed();
    m_answered = true;
    if (m_look && !ShowsSomething(*dialog)) {
      m_answered = false;
    }
    QMetaObject::invokeMethod(dialog, &QDialog::accept, Qt::QueuedConnection);
  }

  /// Pixels of more than one colour on the screen.
  static bool ShowsSomething(const QDialog& dialog) {
    const QImage image = dialog.screen()->grabWindow(dialog.winId()).toImage();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) != image.pixel(0, 0)) {
          return true;
        }
      }
    }
    return false;
  }

  QElapsedTimer m_clock;
  qint64 m_paintedAt = 0;
  bool m_painted = false;
  bool m_answered = false;
  bool m_look;
};

void OpenColour(QWidget* owner) {
  QColorDialog::getColor(QColor(51, 102, 255), owner, QString(), QColorDialog::DontUseNativeDialog);
}

void OpenFont(QWidget* owner) {
  bool confirmed = false;
  QFontDialog::getFont(&confirmed, QApplication::font(), owner, QString(),
                       QFontDialog::DontUseNativeDialog);
}

void OpenText(QWidget* owner) {
  QInputDialog::getText(owner, "題名", "説明", QLineEdit::Normal, "初期値");
}

void OpenNumber(QWidget* owner) {
  constexpr double kScale = 100.0;
  QInputDialog::getDouble(owner, "題名", "説明", kScale);
}

const std::map<std::string, void (*)(QWidget*)> kDialogs{
    {"colour", OpenColour}, {"font", OpenFont}, {"text", OpenText}, {"number", OpenNumber}};

void Serve(bool look) {
  QWidget owner;
  owner.setGeometry(kOwnerPlace);
  owner.show();
  owner.activateWindow();
  while (!owner.windowHandle()->isExposed()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QApplication::processEvents();
  Answerer answerer(look);
  std::cout << "ready" << std::endl;
  for (std::string name; std::getline(std::cin, name);) {
    const Answerer::Times times = answerer.Run([&] { kDialogs.at(name)(&owner); });
    std::cout << times.openToPaint << ' ' << times.confirmToReturn << std::endl;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  try {
    Serve(argc > 1 && std::string(argv[1]) == "--look");
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return kFailed;
  }
}
