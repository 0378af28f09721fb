// GIO before Qt: its headers use names that Qt may define away.
#include <gio/gio.h>

#include "actions/DesktopURLOpener.h"

#include "actions/process/DescriptorLimit.h"

#include <memory>

namespace {

struct ObjectRelease
{
    void operator()(GAppInfo* info) const { g_object_unref(info); }
};
using AppInfo = std::unique_ptr<GAppInfo, ObjectRelease>;

AppInfo handlerOf(const QString& url)
{
    const qsizetype end = qMax<qsizetype>(url.indexOf(u':'), 0);
    const QByteArray scheme = url.left(end).toLower().toUtf8();
    return AppInfo(scheme.isEmpty() ? nullptr : g_app_info_get_default_for_uri_scheme(scheme.constData()));
}

} // namespace

bool DesktopURLOpener::canOpenURL(const QString& url)
{
    return handlerOf(url) != nullptr;
}

void DesktopURLOpener::openURL(const QString& url)
{
    const AppInfo handler = handlerOf(url);
    if (!handler)
        return;
    QByteArray text = url.toUtf8();
    GList list = { text.data(), nullptr, nullptr };
    const DescriptorLimit::OfChildren limit;
    g_app_info_launch_uris(handler.get(), &list, nullptr, nullptr);
}
