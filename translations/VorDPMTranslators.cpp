#include "VorDPMTranslators.h"

#include <QCoreApplication>
#include <QLibraryInfo>

VorDPMTranslators::Language VorDPMTranslators::Choose(const QLocale& locale) {
    const QStringList languages = locale.uiLanguages();
    for (const QString& name : languages) {
        const QLocale::Language language = QLocale(name).language();
        if (language == QLocale::English) return Language::English;
        if (language == QLocale::Chinese) return Language::Chinese;
    }
    return Language::Chinese;
}

VorDPMTranslators::VorDPMTranslators(const QLocale& locale, const QString& catalog)
    : m_language(Choose(locale)) {
    // The source texts are Chinese: English needs the catalog, Chinese only Qt's own texts.
    if (m_language == Language::English)
        Install(catalog + QStringLiteral("_en"));
    else
        InstallQtTexts(locale);
}

VorDPMTranslators::~VorDPMTranslators() {
    for (const auto& translator : m_installed) QCoreApplication::removeTranslator(translator.get());
}

// Qt's catalogs come from the system (Debian's qt6-translations-l10n); without them Qt's texts
// stay English. A Chinese locale keeps its own script and region, any other gets Simplified.
void VorDPMTranslators::InstallQtTexts(const QLocale& locale) {
    const QLocale chinese =
        locale.language() == QLocale::Chinese ? locale : QLocale(QLocale::Chinese, QLocale::China);
    const QString directory = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    Install(QStringLiteral("qt_") + chinese.name(), directory);
}

void VorDPMTranslators::Install(const QString& file, const QString& directory) {
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file, directory)) return;
    if (!QCoreApplication::installTranslator(translator.get())) return;
    m_installed.push_back(std::move(translator));
}
