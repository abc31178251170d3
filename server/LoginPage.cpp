#include "server/LoginPage.h"

#include <QUrl>
#include <QUrlQuery>

namespace OmbrelServer {

namespace {

QString page(const QString &title, const QString &content)
{
    return QStringLiteral(
               "<!DOCTYPE html><html lang=\"en\"><head><meta charset=\"utf-8\">"
               "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"><title>%1</title>"
               "<style>body{font-family:sans-serif;background:#f4f7f6;margin:0}"
               "main{max-width:360px;margin:60px auto;background:#fff;padding:24px 28px;border-radius:8px;"
               "box-shadow:0 1px 4px rgba(0,0,0,.15)}h1{font-size:20px;color:#004D40}"
               "label{display:block;margin:12px 0 4px}input{width:100%;box-sizing:border-box;padding:8px}"
               "button{margin-top:18px;width:100%;padding:8px;background:#00897B;color:#fff;border:0;"
               "border-radius:4px;font-weight:600}.error{color:#b00020}</style></head>"
               "<body><main><h1>%1</h1>%2</main></body></html>")
        .arg(title.toHtmlEscaped(), content);
}

QString hiddenFields(const LoginPage::Link &link)
{
    return QStringLiteral("<input type=\"hidden\" name=\"client_id\" value=\"%1\">"
                          "<input type=\"hidden\" name=\"redirect_uri\" value=\"%2\">")
        .arg(link.clientId.toHtmlEscaped(), link.redirectUri.toHtmlEscaped());
}

QString linkTo(const LoginPage::Link &link, const QString &page)
{
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("client_id"),
                       QString::fromLatin1(QUrl::toPercentEncoding(link.clientId)));
    query.addQueryItem(QStringLiteral("redirect_uri"),
                       QString::fromLatin1(QUrl::toPercentEncoding(link.redirectUri)));
    return QStringLiteral("/%1/account/%2?%3")
        .arg(QString::fromLatin1(QUrl::toPercentEncoding(link.realm)), page, query.query(QUrl::FullyEncoded))
        .toHtmlEscaped();
}

QString errorLine(const QString &error)
{
    return error.isEmpty()
               ? QString()
               : QStringLiteral("<p class=\"error\" id=\"error\">%1</p>").arg(error.toHtmlEscaped());
}

} // namespace

QString LoginPage::signIn(const Link &link, const QString &email, const QString &error)
{
    return page(QStringLiteral("Sign in"),
                errorLine(error) +
                    QStringLiteral(
                        "<form method=\"post\" action=\"%1\">%2"
                        "<label for=\"email\">E-mail address</label>"
                        "<input id=\"email\" name=\"email\" type=\"email\" value=\"%3\" required autofocus>"
                        "<label for=\"password\">Password</label>"
                        "<input id=\"password\" name=\"password\" type=\"password\" required>"
                        "<button id=\"submit\" type=\"submit\">Sign in</button></form>"
                        "<p>New here? <a id=\"signup\" href=\"%4\">Create an account</a></p>")
                        .arg(linkTo(link, QStringLiteral("login")), hiddenFields(link), email.toHtmlEscaped(),
                             linkTo(link, QStringLiteral("signup"))));
}

QString LoginPage::signUp(const Link &link, const QString &email, const QString &displayName,
                          const QString &error)
{
    return page(QStringLiteral("Create an account"),
                errorLine(error) +
                    QStringLiteral(
                        "<form method=\"post\" action=\"%1\">%2"
                        "<label for=\"display_name\">Your name</label>"
                        "<input id=\"display_name\" name=\"display_name\" value=\"%3\">"
                        "<label for=\"email\">E-mail address</label>"
                        "<input id=\"email\" name=\"email\" type=\"email\" value=\"%4\" required>"
                        "<label for=\"password\">Password (at least 8 characters)</label>"
                        "<input id=\"password\" name=\"password\" type=\"password\" minlength=\"8\" required>"
                        "<button id=\"submit\" type=\"submit\">Create account</button></form>"
                        "<p>Have an account? <a id=\"signin\" href=\"%5\">Sign in</a></p>")
                        .arg(linkTo(link, QStringLiteral("signup")), hiddenFields(link),
                             displayName.toHtmlEscaped(), email.toHtmlEscaped(),
                             linkTo(link, QStringLiteral("login"))));
}

QString LoginPage::message(const QString &title, const QString &text)
{
    return page(title, QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
}

} // namespace OmbrelServer
