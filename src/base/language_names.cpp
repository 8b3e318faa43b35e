// SPDX-License-Identifier: MIT
#include "base/language_names.h"

#include <algorithm>
#include <array>

namespace fennel {

namespace {

struct SystemLanguage {
    const char* id;     // four hexadecimal digits
    const char* name;   // blanks written as "_"
    const char* locale; // "ll_CC", with "@script" where one country has two
};

// The published list of Windows language identifiers; the log names languages by it, wherever the
// program runs. The order decides which row a bare language such as "ar" gets: the first.
constexpr std::array<SystemLanguage, 126> languages{{
    {"0436", "Afrikaans", "af_ZA"},
    {"041C", "Albanian", "sq_AL"},
    {"0401", "Arabic_Saudi_Arabia", "ar_SA"},
    {"0801", "Arabic_Iraq", "ar_IQ"},
    {"0C01", "Arabic_Egypt", "ar_EG"},
    {"1001", "Arabic_Libya", "ar_LY"},
    {"1401", "Arabic_Algeria", "ar_DZ"},
    {"1801", "Arabic_Morocco", "ar_MA"},
    {"1C01", "Arabic_Tunisia", "ar_TN"},
    {"2001", "Arabic_Oman", "ar_OM"},
    {"2401", "Arabic_Yemen", "ar_YE"},
    {"2801", "Arabic_Syria", "ar_SY"},
    {"2C01", "Arabic_Jordan", "ar_JO"},
    {"3001", "Arabic_Lebanon", "ar_LB"},
    {"3401", "Arabic_Kuwait", "ar_KW"},
    {"3801", "Arabic_UAE", "ar_AE"},
    {"3C01", "Arabic_Bahrain", "ar_BH"},
    {"4001", "Arabic_Qatar", "ar_QA"},
    {"042B", "Armenian", "hy_AM"},
    {"042C", "Azeri_Latin", "az_AZ"},
    {"082C", "Azeri_Cyrillic", "az_AZ@cyrillic"},
    {"042D", "Basque", "eu_ES"},
    {"0423", "Belarusian", "be_BY"},
    {"0402", "Bulgarian", "bg_BG"},
    {"0403", "Catalan", "ca_ES"},
    {"0404", "Chinese_Taiwan", "zh_TW"},
    {"0804", "Chinese_PRC", "zh_CN"},
    {"0C04", "Chinese_Hong_Kong", "zh_HK"},
    {"1004", "Chinese_Singapore", "zh_SG"},
    {"1404", "Chinese_Macau", "zh_MO"},
    {"041A", "Croatian", "hr_HR"},
    {"0405", "Czech", "cs_CZ"},
    {"0406", "Danish", "da_DK"},
    {"0413", "Dutch_Standard", "nl_NL"},
    {"0813", "Dutch_Belgian", "nl_BE"},
    {"0409", "English_United_States", "en_US"},
    {"0809", "English_United_Kingdom", "en_GB"},
    {"0C09", "English_Australian", "en_AU"},
    {"1009", "English_Canadian", "en_CA"},
    {"1409", "English_New_Zealand", "en_NZ"},
    {"1809", "English_Irish", "en_IE"},
    {"1C09", "English_South_Africa", "en_ZA"},
    {"2009", "English_Jamaica", "en_JM"},
    {"2409", "English_Caribbean", "en_029"},
    {"2809", "English_Belize", "en_BZ"},
    {"2C09", "English_Trinidad", "en_TT"},
    {"3009", "English_Zimbabwe", "en_ZW"},
    {"3409", "English_Philippines", "en_PH"},
    {"0425", "Estonian", "et_EE"},
    {"0438", "Faeroese", "fo_FO"},
    {"0429", "Farsi", "fa_IR"},
    {"040B", "Finnish", "fi_FI"},
    {"040C", "French_Standard", "fr_FR"},
    {"080C", "French_Belgian", "fr_BE"},
    {"0C0C", "French_Canadian", "fr_CA"},
    {"100C", "French_Swiss", "fr_CH"},
    {"140C", "French_Luxembourg", "fr_LU"},
    {"180C", "French_Monaco", "fr_MC"},
    {"0437", "Georgian", "ka_GE"},
    {"0407", "German_Standard", "de_DE"},
    {"0807", "German_Swiss", "de_CH"},
    {"0C07", "German_Austrian", "de_AT"},
    {"1007", "German_Luxembourg", "de_LU"},
    {"1407", "German_Liechtenstei", "de_LI"},
    {"0408", "Greek", "el_GR"},
    {"040D", "Hebrew", "he_IL"},
    {"0439", "Hindi", "hi_IN"},
    {"040E", "Hungarian", "hu_HU"},
    {"040F", "Icelandic", "is_IS"},
    {"0421", "Indonesian", "id_ID"},
    {"0410", "Italian_Standard", "it_IT"},
    {"0810", "Italian_Swiss", "it_CH"},
    {"0411", "Japanese", "ja_JP"},
    {"043F", "Kazakh", "kk_KZ"},
    {"0457", "Konkani", "kok_IN"},
    {"0412", "Korean", "ko_KR"},
    {"0426", "Latvian", "lv_LV"},
    {"0427", "Lithuanian", "lt_LT"},
    {"042F", "Macedonian", "mk_MK"},
    {"043E", "Malay_Malaysia", "ms_MY"},
    {"083E", "Malay_Brunei_Darussalam", "ms_BN"},
    {"044E", "Marathi", "mr_IN"},
    {"0414", "Norwegian_Bokmal", "nb_NO"},
    {"0814", "Norwegian_Nynorsk", "nn_NO"},
    {"0415", "Polish", "pl_PL"},
    {"0416", "Portuguese_Brazilian", "pt_BR"},
    {"0816", "Portuguese_Standard", "pt_PT"},
    {"0418", "Romanian", "ro_RO"},
    {"0419", "Russian", "ru_RU"},
    {"044F", "Sanskrit", "sa_IN"},
    {"081A", "Serbian_Latin", "sr_RS@latin"},
    {"0C1A", "Serbian_Cyrillic", "sr_RS"},
    {"041B", "Slovak", "sk_SK"},
    {"0424", "Slovenian", "sl_SI"},
    {"040A", "Spanish_Traditional_Sort", "es_ES@tradnl"},
    {"080A", "Spanish_Mexican", "es_MX"},
    {"0C0A", "Spanish_Modern_Sort", "es_ES"},
    {"100A", "Spanish_Guatemala", "es_GT"},
    {"140A", "Spanish_Costa_Rica", "es_CR"},
    {"180A", "Spanish_Panama", "es_PA"},
    {"1C0A", "Spanish_Dominican_Republic", "es_DO"},
    {"200A", "Spanish_Venezuela", "es_VE"},
    {"240A", "Spanish_Colombia", "es_CO"},
    {"280A", "Spanish_Peru", "es_PE"},
    {"2C0A", "Spanish_Argentina", "es_AR"},
    {"300A", "Spanish_Ecuador", "es_EC"},
    {"340A", "Spanish_Chile", "es_CL"},
    {"380A", "Spanish_Uruguay", "es_UY"},
    {"3C0A", "Spanish_Paraguay", "es_PY"},
    {"400A", "Spanish_Bolivia", "es_BO"},
    {"440A", "Spanish_El_Salvador", "es_SV"},
    {"480A", "Spanish_Honduras", "es_HN"},
    {"4C0A", "Spanish_Nicaragua", "es_NI"},
    {"500A", "Spanish_Puerto_Rico", "es_PR"},
    {"0441", "Swahili", "sw_KE"},
    {"041D", "Swedish", "sv_SE"},
    {"081D", "Swedish_Finland", "sv_FI"},
    {"0449", "Tamil", "ta_IN"},
    {"0444", "Tatar", "tt_RU"},
    {"041E", "Thai", "th_TH"},
    {"041F", "Turkish", "tr_TR"},
    {"0422", "Ukrainian", "uk_UA"},
    {"0420", "Urdu", "ur_PK"},
    {"0443", "Uzbek_Latin", "uz_UZ"},
    {"0843", "Uzbek_Cyrillic", "uz_UZ@cyrillic"},
    {"042A", "Vietnamese", "vi_VN"},
}};

// "ru_RU.UTF-8@euro" -> "ru_RU"; a modifier that names a script stays.
QString plainLocale(const QString& locale)
{
    const QString bare = locale.section(QLatin1Char('@'), 0, 0).section(QLatin1Char('.'), 0, 0);
    const QString modifier = locale.section(QLatin1Char('@'), 1);
    const bool script = modifier == QLatin1String("latin") || modifier == QLatin1String("cyrillic");
    return script ? bare + QLatin1Char('@') + modifier : bare;
}

// Codes that languages had before they got their present ones.
QString presentCode(const QString& language)
{
    if (language == QLatin1String("no"))
        return QStringLiteral("nb");
    return language == QLatin1String("iw") ? QStringLiteral("he") : language;
}

template <class Test>
QString firstId(Test test)
{
    const auto* row = std::find_if(languages.begin(), languages.end(), test);
    return row == languages.end() ? QString() : QString::fromLatin1(row->id);
}

} // namespace

QString languageName(const QString& id)
{
    const QString wanted = id.trimmed().toUpper();
    const auto* row =
        std::find_if(languages.begin(), languages.end(), [&](const SystemLanguage& language) {
            return wanted == QLatin1String(language.id);
        });
    return row == languages.end() ? QStringLiteral("undef") : QString::fromLatin1(row->name);
}

// From the exact form to the loosest: with script, without it, the language's home country ("fr"
// means "fr_FR"), any country. What is in no row has no identifier.
QString languageOfLocale(const QString& locale)
{
    const QString plain = plainLocale(locale);
    const QString language =
        presentCode(plain.section(QLatin1Char('@'), 0, 0).section(QLatin1Char('_'), 0, 0));
    const QString full = language + plain.mid(plain.section(QLatin1Char('_'), 0, 0).size());
    const QString home = language + QLatin1Char('_') + language.toUpper();
    const QString start = language + QLatin1Char('_');
    for (const QString& form : {full, full.section(QLatin1Char('@'), 0, 0), home}) {
        QString id =
            firstId([&](const SystemLanguage& row) { return form == QLatin1String(row.locale); });
        if (!id.isEmpty())
            return id;
    }
    return firstId([&](const SystemLanguage& row) {
        return QString::fromLatin1(row.locale).startsWith(start);
    });
}

} // namespace fennel
