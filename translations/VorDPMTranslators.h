// The translators of one run of the editor or the host: the project's catalog for the language
// the locale asks for and Qt's own texts (standard buttons, file dialogs) in the same language,
// installed while the object lives and removed when it goes.
#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>
#include <memory>
#include <vector>

class VorDPMTranslators {
public:
    enum class Language { Chinese, English };

    // The first of the locale's languages that the project speaks; Chinese, the language of the
    // source texts, when none is.
    static Language Choose(const QLocale& locale);

    // `catalog` names the project's catalog without its language suffix, e.g.
    // ":/vordpm/translations/vordpm_editor" for vordpm_editor_en.qm.
    VorDPMTranslators(const QLocale& locale, const QString& catalog);
    ~VorDPMTranslators();
    VorDPMTranslators(const VorDPMTranslators&) = delete;
    VorDPMTranslators& operator=(const VorDPMTranslators&) = delete;

    Language GetLanguage() const { return m_language; }

private:
    void InstallQtTexts(const QLocale& locale);
    void Install(const QString& file, const QString& directory = QString());

    Language m_language;
    std::vector<std::unique_ptr<QTranslator>> m_installed;
};
