#pragma once

#include <QNetworkRequest>
#include <QUrl>

#include <chrono>

class QNetworkReply;

// What downloads of indexes and of archives have in common: how they ask, and how an answer is read.

inline constexpr int statusOK = 200;
inline constexpr int mostRedirects = 20;

// Whether the URL is of http or https: what is not fetched over the network is no source.
bool isWebURL(const QUrl& url);

// Redirects are not followed by themselves, for Qt then mixes the headers of the two answers; redirectOf() tells where
// to ask next. Nothing goes to or comes from a cookie jar.
QNetworkRequest webRequest(const QUrl& url, std::chrono::milliseconds inactivityTimeout);

// 0 while it is not known.
int statusOf(const QNetworkReply& reply);

// Where the answer leads on to; invalid when it is none that may: only to http and https, and never from https to http.
QUrl redirectOf(const QNetworkReply& reply);

// Whether fewer or more bytes were received than the answer told.
bool hasWrongLength(const QNetworkReply& reply, qint64 received);
