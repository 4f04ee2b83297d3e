#include "core/batch_lines.h"

#include "core/messages.h"
#include "platform/dos_code_page.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString WithDoubledPercent(QString text) {
  return text.replace(u'%', u"%%"_s);
}

}  // namespace

BatchPiece BatchLines::Quoted(const QString& path) {
  return BatchPiece('"' + ToDosCodePage(WithDoubledPercent(path)) + '"');
}

BatchPiece BatchLines::Name(const QString& name, const QString& key) {
  return BatchPiece('"' + WithDoubledPercent(values_.Name(name, key)).toUtf8() + '"');
}

BatchPiece BatchLines::Word(const QString& word, const QString& key) {
  return BatchPiece(WithDoubledPercent(values_.Word(word, key)).toUtf8());
}

BatchPiece BatchLines::WholeNumber(const QString& number, const QString& key) {
  return BatchPiece(WithDoubledPercent(values_.WholeNumber(number, key)).toUtf8());
}

BatchPiece BatchLines::Decimal(double number, int places) {
  return BatchPiece(QByteArray::number(number, 'f', places));
}

BatchPiece BatchLines::Message(int number) {
  return BatchPiece(WithDoubledPercent(GetMessage(number)).toUtf8());
}

}  // namespace torvane
