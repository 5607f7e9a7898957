#include "PanorelX11/DesktopPicture/SettingsPicture.h"

#include "PanorelX11/Session/GObjectOwned.h"

#include <gio/gio.h>

namespace Panorel::X11 {

namespace {

struct SchemaDeleter {
    void operator()(GSettingsSchema *schema) const { g_settings_schema_unref(schema); }
};
using Schema = std::unique_ptr<GSettingsSchema, SchemaDeleter>;

/// How the picture fits is the user's, but "none" would show no picture at all.
void showPicture(GSettings *settings, GSettingsSchema *schema)
{
    constexpr auto fitting = "picture-options";
    if (!g_settings_schema_has_key(schema, fitting))
        return;
    char *value = g_settings_get_string(settings, fitting);
    if (QByteArrayView(value) == "none")
        g_settings_set_string(settings, fitting, "zoom");
    g_free(value);
}

} // namespace

SettingsPicture::Place SettingsPicture::gnome()
{
    return {"org.gnome.desktop.background", {"picture-uri", "picture-uri-dark"}, true};
}

SettingsPicture::Place SettingsPicture::cinnamon()
{
    return {"org.cinnamon.desktop.background", {"picture-uri"}, true};
}

SettingsPicture::Place SettingsPicture::mate()
{
    return {"org.mate.background", {"picture-filename"}, false};
}

void SettingsPicture::set(const PictureFile &picture)
{
    // Opening settings without a schema, or setting a key that it hasn't got, ends the process.
    GSettingsSchemaSource *source = g_settings_schema_source_get_default();
    const Schema schema(
        source ? g_settings_schema_source_lookup(source, m_place.schema.constData(), TRUE)
               : nullptr);
    if (!schema)
        return;
    const GOwned<GSettings> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    const QByteArray value = (m_place.holdsURI ? picture.uri() : picture.path()).toUtf8();
    for (const QByteArray &key : m_place.keys) {
        if (g_settings_schema_has_key(schema.get(), key.constData()))
            g_settings_set_string(settings.get(), key.constData(), value.constData());
    }
    showPicture(settings.get(), schema.get());
}

} // namespace Panorel::X11
