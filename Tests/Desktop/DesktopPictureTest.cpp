#include "Desktop/Support/TestServer.h"
#include "PanorelX11/Connection/XConnection.h"
#include "PanorelX11/DesktopPicture/SettingsPicture.h"
#include "PanorelX11/DesktopPicture/X11DesktopPicture.h"
#include "PanorelX11/Session/GObjectOwned.h"

#include <QFile>
#include <QPainter>
#include <QTest>
#include <QUrl>

#include <gio/gio.h>
#include <sys/stat.h>

namespace Panorel::X11 {

using namespace Panorel::Desktop;

namespace {

const std::tuple<int, int, QColor> corners[] = {
    {0, 0, Qt::red}, {1, 0, Qt::green}, {0, 1, Qt::blue}, {1, 1, Qt::white}};

/// A quarter of each colour; black at two ends, which are cut off where the shape is another.
QImage quarters(QSize size, QSize ends = {})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setClipRect(QRect(QPoint(ends.width(), ends.height()), size - 2 * ends));
    const QSize quarter = size / 2;
    for (const auto &[right, below, color] : corners)
        painter.fillRect(QRect(QPoint(right * quarter.width(), below * quarter.height()), quarter),
                         color);
    return image;
}

constexpr auto hostileName = "it's \"quoted\" \\ 100% #1\nline \u2028 \u00E9.png";

} // namespace

/// The root window's picture is tested by its pixels. Of the other desktops, which don't run here,
/// the setting that they follow is.
class DesktopPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_server.plug({{.output = 0}, {.output = 1, .x = 1920, .width = 1280, .height = 1024}});
        m_viewer = std::make_unique<XConnection>();
    }

    void thePictureCoversEveryMonitorWithItsMiddle()
    {
        QStringList files{save(quarters({4000, 500}, {500, 0}), "wide.png"),
                          save(quarters({500, 4000}, {0, 500}), "tall.png"),
                          save(quarters({32, 18}), "small.bmp"),
                          save(quarters({20, 30000}, {0, 9000}), "thin.png"), path("wide.jpg")};
        QFile::copy(files.first(), files.last()); // of a wrong suffix
        for (const QString &file : std::as_const(files)) {
            const auto before = rootProperty("_XROOTPMAP_ID");
            show("", file);
            const auto pixmap = rootProperty("_XROOTPMAP_ID").value();
            QVERIFY(pixmap != before);
            QCOMPARE(rootProperty("ESETROOT_PMAP_ID"), pixmap);
            for (const QRect monitor : {QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1024)}) {
                for (const auto &[right, below, color] : corners) {
                    // Near the corners, where a stretched picture would show its black ends.
                    const int x = monitor.x() + (right ? monitor.width() - 5 : 4);
                    const int y = monitor.y() + (below ? monitor.height() - 5 : 4);
                    QVERIFY2(pixel(pixmap, x, y) == color, qPrintable(file));
                    QVERIFY2(pixel(m_viewer->root(), x, y) == color, qPrintable(file));
                }
            }
            QCOMPARE(pixel(pixmap, 2500, 1060), QColor(Qt::black)); // below the smaller monitor
        }
    }

    void anotherPictureFreesTheOneBeforeAndNobodyElses()
    {
        const QString file = save(quarters({64, 48}), "picture.png");
        show("", file);
        const auto first = rootProperty("_XROOTPMAP_ID").value();
        show("", file);
        const auto second = rootProperty("_XROOTPMAP_ID").value();
        QVERIFY(!exists(first));
        QVERIFY(exists(second));

        xcb_connection_t *c = m_viewer->get();
        const xcb_window_t window = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, m_viewer->root(), 0, 0, 9, 9, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(c, window); // its pixels are read
        const xcb_pixmap_t used = xcb_generate_id(c);
        xcb_create_pixmap(c, 24, used, m_viewer->root(), 9, 9);
        // A window's program; a picture that was not left to be freed; everybody at once.
        for (const auto &[announced, disposable] :
             {std::pair(window, window), std::pair(used, second), std::pair(0U, 0U)}) {
            setRootProperty("_XROOTPMAP_ID", announced);
            setRootProperty("ESETROOT_PMAP_ID", disposable);
            QVERIFY(exists(window));
            show("", file);
            QVERIFY(exists(window) && exists(used) && exists(second));
        }
    }

    void whatIsNoPictureLeavesTheDesktopAsItIs()
    {
        save(quarters({300, 300}), "whole.png");
        const QByteArray whole = readFile(path("whole.png"));
        ::mkfifo(qPrintable(path("pipe without a writer")), 0600);
        writeFile(path("text.png"), "no picture");
        writeFile(path("immense.ppm"), "P6 65535 65535 255\n");
        writeFile(path("cut off.png"), whole.left(whole.size() / 2));
        show("", path("whole.png"));
        const auto before = rootProperty("_XROOTPMAP_ID").value();
        for (const char *name : {"text.png", "immense.ppm", "cut off.png", "missing.png", "",
                                 "pipe without a writer"}) {
            show("", path(name));
            QVERIFY2(rootProperty("_XROOTPMAP_ID") == before && exists(before), name);
        }
    }

    void theSettingIsStored()
    {
        const struct {
            const char *desktop, *schema, *key;
            const char *fitting; ///< the user's
            const char *fittingAfter;
        } rows[] = {
            {"ubuntu:GNOME", "org.gnome.desktop.background", "picture-uri-dark", "none", "zoom"},
            {"X-Cinnamon", "org.cinnamon.desktop.background", "picture-uri", "none", "zoom"},
            {"mate", "org.mate.background", "picture-filename", "spanned", "spanned"}};
        const QString file = save(quarters({64, 48}), hostileName);
        for (const auto &[desktop, schema, key, fitting, fittingAfter] : rows) {
            const GOwned<GSettings> settings(g_settings_new(schema));
            const auto stored = [&](const char *name) {
                const std::unique_ptr<char, decltype(&g_free)> text(
                    g_settings_get_string(settings.get(), name), g_free);
                return QByteArray(text.get());
            };
            g_settings_set_string(settings.get(), "picture-options", fitting);
            show(desktop, file);
            const QByteArray shown = stored(key);
            const bool isURI = QByteArray(key).contains("uri");
            QCOMPARE(isURI ? QUrl::fromEncoded(shown).toLocalFile() : QString::fromUtf8(shown),
                     file);
            // A URI may stand in a script, whose text it must not end.
            QVERIFY(!isURI || !(shown.contains('"') || shown.contains('\\')));
            QCOMPARE(stored("picture-options"), QByteArray(fittingAfter));
        }
        // What is not installed is left out.
        const auto picture = PictureFile::at(file).value();
        SettingsPicture({"org.example.NotInstalled", {"picture-uri"}, true}).set(picture);
        SettingsPicture({"org.mate.background", {"no-such-key"}, true}).set(picture);
    }

private:
    QString path(const char *name) const { return m_server.home.path(QString::fromUtf8(name)); }
    QString save(const QImage &image, const char *name) const
    {
        image.save(path(name));
        return path(name);
    }
    void show(const char *desktop, const QString &file)
    {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        m_picture = std::make_unique<X11DesktopPicture>();
        m_picture->setDesktopPicture(file);
    }
    std::optional<std::uint32_t> rootProperty(const char *name) const
    {
        return PropertyRequest(*m_viewer, m_viewer->root(), m_viewer->atom(name))
            .collect()
            .value32();
    }
    void setRootProperty(const char *name, std::uint32_t pixmap) const
    {
        xcb_change_property(m_viewer->get(), XCB_PROP_MODE_REPLACE, m_viewer->root(),
                            m_viewer->atom(name), XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    }
    bool exists(xcb_drawable_t drawable) const { return pixel(drawable, 0, 0).isValid(); }
    QColor pixel(xcb_drawable_t drawable, int x, int y) const
    {
        xcb_generic_error_t *error = nullptr;
        const auto cookie = xcb_get_image(m_viewer->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
                                          std::int16_t(x), std::int16_t(y), 1, 1, ~0U);
        const XOwned<xcb_get_image_reply_t> reply(
            xcb_get_image_reply(m_viewer->get(), cookie, &error));
        const XOwned<xcb_generic_error_t> dropped(error);
        return reply ? QColor(*reinterpret_cast<QRgb *>(xcb_get_image_data(reply.get())))
                     : QColor();
    }

    TestServer m_server;
    std::unique_ptr<XConnection> m_viewer;
    std::unique_ptr<X11DesktopPicture> m_picture;
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::DesktopPictureTest)
#include "DesktopPictureTest.moc"
