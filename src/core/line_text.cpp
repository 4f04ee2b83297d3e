#include "core/line_text.h"

#include "platform/dos_code_page.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The command processor takes a single "%" for the start of a variable's name.
QString WithDoubledPercent(QString text) { return text.replace(u'%', u"%%"_s); }

}  // namespace

QByteArray BatchPath(const QString& path) { return ToDosCodePage(WithDoubledPercent(path)); }

QByteArray QuotedBatchPath(const QString& path) { return '"' + BatchPath(path) + '"'; }

QByteArray BatchText(const QString& text) { return WithDoubledPercent(text).toUtf8(); }

}  // namespace torvane
