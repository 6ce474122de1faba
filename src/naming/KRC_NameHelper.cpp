#include "naming/KRC_NameHelper.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"

#include <QRegExp>

#include <algorithm>
#include <climits>
#include <optional>
#include <set>
#include <vector>

namespace {

// Every character that is not an ASCII letter or digit separates. Each calling
// function compiles its own copy once, on first use, and keeps it.
QRegExp separatorExpression()
{
    return QRegExp(QStringLiteral("[^a-zA-Z0-9]"));
}

// The head is the text before the last separator (the whole name without one);
// the tail is the last separator and what follows it (null without one).
void splitAtLastSeparator(const QString& name, QRegExp& separator, QString& head, QString& tail)
{
    const int pos = separator.lastIndexIn(name);
    if (pos < 0) {
        head = name;
        tail = QString();
        return;
    }
    head = name.left(pos);
    tail = name.mid(pos);
}

// Steps a character through its signed Latin-1 byte, truncated back to 16 bits:
// ASCII behaves as expected, anything beyond Latin-1 reads as 0.
QChar stepChar(QChar c, int delta)
{
    const int byte = static_cast<signed char>(c.toLatin1());
    return QChar(static_cast<ushort>(byte + delta));
}

// A name that reads as a whole 32-bit number in base 10 (spaces and a sign allowed).
std::optional<int> asInteger(const QString& name)
{
    bool isInteger = false;
    const int number = name.toInt(&isInteger, 10);
    return isInteger ? std::optional<int>(number) : std::nullopt;
}

QString printWithWidth(qint64 value, int width)
{
    return QString::asprintf("%0*lld", width, static_cast<long long>(value));
}

void padWithZeros(QString& text, int width)
{
    if (text.length() < width)
        text.prepend(QString(width - text.length(), QLatin1Char('0')));
}

// The character that a carry running off the start (or into a separator) adds.
QChar carryCharacter(int type, bool upper)
{
    QChar c;
    switch (type) {
    case 0:
        return QLatin1Char('1');
    case 1:
        c = QLatin1Char('a');
        break;
    case 2:
    case 3:
        c = QLatin1Char('z');
        break;
    default:
        return QChar();
    }
    return upper ? c.toUpper() : c;
}

QString emptyNameStart(int type)
{
    return type == 0 ? QStringLiteral("1") : QStringLiteral("A");
}

// Bijective base 26: 1 is "A", 26 is "Z", 27 is "AA". Empty for 0 and below.
QString lettersOf(int value)
{
    QChar buffer[8];
    int pos = 8;
    while (value > 0) {
        --value;
        buffer[--pos] = QChar('A' + value % 26);
        value /= 26;
    }
    return QString(buffer + pos, 8 - pos);
}

// Finds the last run of digits of `text`; `start` and `end` bound it.
bool findLastDigitRun(const QString& text, int& start, int& end)
{
    int i = text.size();
    while (i > 0 && !text.at(i - 1).isDigit())
        --i;
    if (i == 0)
        return false;
    end = i;
    while (i > 0 && text.at(i - 1).isDigit())
        --i;
    start = i;
    return true;
}

void appendIfNotEmpty(QStringList& parts, const QString& text)
{
    if (!text.isEmpty())
        parts.append(text);
}

// Two names differ at most from their numerical part on when their parts agree
// up to it.
bool samePartsBefore(const QStringList& a, const QStringList& b, int index)
{
    for (int i = 0; i < index; ++i) {
        if (a.at(i) != b.at(i))
            return false;
    }
    return true;
}

QString padded(QString text, int width)
{
    padWithZeros(text, width);
    return text;
}

// The names of the series of one rules, counted from index 0, with the rule and
// the padding read once (each read may ask the preference store).
class SeriesNamer
{
public:
    explicit SeriesNamer(const KRC_NamingRules::ObjRules& rules)
        : m_rule(rules.autoIncrementRule())
        , m_width(KRC_NameHelper::getLeadingSpaces(rules))
    {
    }

    QString at(int index) const { return padded(KRC_NameHelper::getName(index + 1, m_rule), m_width); }

    // The first name from `index` on that is not taken.
    QString firstFree(int index, const std::set<QString>& taken) const
    {
        QString name = at(index);
        while (taken.count(name) != 0)
            name = at(++index);
        return name;
    }

private:
    int m_rule;
    int m_width;
};

// The by-N proposal: the next multiple of the step after the lower neighbour's
// number, or the middle of the gap when that multiple would not lie in its lower
// half; the neighbour's own name when there is no room.
QString proposeByN(int step, int width, const KRC_ObjectName* prev, const KRC_ObjectName* next)
{
    if (!prev && !next)
        return padded(QString::number(step), width);

    const KRC_ObjectName& base = prev ? *prev : *next;
    QStringList parts;
    int index = 0;
    int lower = 0;
    int upper = 0;
    bool hasUpper = false;
    const bool found
        = KRC_NameHelper::extractNumericalPart(base.value(), parts, index, prev ? lower : upper, false);
    if (!prev) {
        lower = 0;
        hasUpper = found;
    } else if (next && found) {
        QStringList nextParts;
        int nextIndex = 0;
        hasUpper = KRC_NameHelper::extractNumericalPart(next->value(), nextParts, nextIndex, upper, false)
            && nextIndex == index && samePartsBefore(parts, nextParts, index);
    }
    if (!found)
        return padded(base.value(), width);

    int value = KRC_NameHelper::getNextMultiple(lower, step);
    if (hasUpper) {
        if (qint64(upper) - lower < 2)
            return padded(base.value(), width);
        const int mid = int((qint64(lower) + upper) / 2);
        value = qMin(value, mid);
    }
    QString number = QString::number(value);
    if (index != 0)
        padWithZeros(number, parts.at(index).length());
    parts[index] = number;
    return padded(parts.join(QString()), width);
}

} // namespace

QString KRC_NameHelper::getNextName(const QString& name, int type)
{
    if (name.isEmpty())
        return emptyNameStart(type);

    if (const std::optional<int> number = asInteger(name))
        return printWithWidth(qint64(*number) + 1, name.length());

    QString result = name;
    bool upper = true;
    const int len = result.length();
    int i = len;
    while (i != 0) {
        const QChar c = result.at(i - 1);
        if (!c.isLetterOrNumber())
            break;
        if (c == QLatin1Char('Z') || c == QLatin1Char('z')) {
            // Rule 3 keeps inner "Z"s: a carry only wraps the last one.
            if (type != 3 || i == len) {
                upper = c == QLatin1Char('Z');
                result[i - 1] = upper ? QLatin1Char('A') : QLatin1Char('a');
            }
        } else if (c == QLatin1Char('9')) {
            result[i - 1] = QLatin1Char('0');
        } else {
            result[i - 1] = stepChar(c, 1);
            return result;
        }
        --i;
    }

    const QChar carry = carryCharacter(type, upper);
    if (!carry.isNull())
        result.insert(i, carry);
    return result;
}

QString KRC_NameHelper::getPrevName(const QString& name, int type)
{
    if (name.isEmpty())
        return emptyNameStart(type);

    if (const std::optional<int> number = asInteger(name))
        return *number > 0 ? printWithWidth(*number - 1, name.length()) : QStringLiteral("999");

    QString result = name;
    bool upper = true;
    int i = result.length();
    while (i != 0) {
        const QChar c = result.at(i - 1);
        if (c == QLatin1Char('A') || c == QLatin1Char('a')) {
            upper = c == QLatin1Char('A');
            if (type == 1) {
                // Rule 1 drops the first character: "AA" goes back to "Z".
                result[i - 1] = upper ? QLatin1Char('Z') : QLatin1Char('z');
                i = 1;
            }
            break;
        }
        if (c != QLatin1Char('0')) {
            result[i - 1] = stepChar(c, -1);
            return result;
        }
        result[i - 1] = QLatin1Char('9');
        --i;
    }

    if (i > 0)
        result.remove(i - 1, 1);
    if (result.isEmpty())
        return upper ? QStringLiteral("A_0") : QStringLiteral("a_0");
    return result;
}

QString KRC_NameHelper::getName(const QString& name, int type, bool forward)
{
    return forward ? getNextName(name, type) : getPrevName(name, type);
}

QString KRC_NameHelper::getName(int value, int type)
{
    switch (type) {
    case 1:
        return lettersOf(value);
    case 2:
        if (value <= 26)
            return lettersOf(value);
        return QLatin1Char('Z') + lettersOf(value - 26);
    case 3: {
        const int v = value - 1;
        QString result;
        if (v / 26 > 0)
            result.fill(QLatin1Char('Z'), v / 26);
        result.append(QChar('A' + v % 26));
        return result;
    }
    default:
        return QString::number(value);
    }
}

QString KRC_NameHelper::getName(const KRC_NamingRules::ObjRules& rules, int index)
{
    return SeriesNamer(rules).at(index);
}

int KRC_NameHelper::getLeadingSpaces(const KRC_NamingRules::ObjRules& rules)
{
    return rules.automaticLeadingZeros() ? rules.numberOfZeros() : 0;
}

bool KRC_NameHelper::canModifyName(const KRC_NamingRules::ObjRules& rules, const KRC_ObjectName& name)
{
    return !name.isLocked() && rules.allowCustomName();
}

int KRC_NameHelper::getNextMultiple(int value, int multiple)
{
    const qint64 step = multiple == 0 ? 1 : qAbs(qint64(multiple));
    if (value < step)
        return int(step);
    const qint64 next = (value / step + 1) * step;
    return next > INT_MAX ? INT_MAX : int(next);
}

void KRC_NameHelper::getPrefixAndSuffix(
    const QString& name, QString& prefix, int& value, int& length, QString& suffix)
{
    static QRegExp separator = separatorExpression();
    const int pos = separator.indexIn(name);
    if (pos < 0) {
        prefix = name;
        suffix = QString();
    } else {
        prefix = name.left(pos);
        suffix = name.mid(pos);
    }
    length = prefix.length();
    value = asInteger(prefix).value_or(INT_MIN);
}

QString KRC_NameHelper::getBaseName(const QString& name, int type, int minLength, int count)
{
    static QRegExp separator = separatorExpression();
    QString head;
    QString tail;
    splitAtLastSeparator(name, separator, head, tail);

    QString delimiter;
    if (!tail.isEmpty()) {
        delimiter = tail.left(1);
        tail.remove(0, 1);
    }

    QString& target = tail.isEmpty() ? head : tail;
    for (int i = 0; i < count; ++i)
        target = getNextName(target, type);
    for (int i = 0; i > count; --i)
        target = getPrevName(target, type);

    padWithZeros(head, minLength);
    return head + delimiter + tail;
}

QString KRC_NameHelper::getBaseName(
    const KRC_ObjectName* prev, const KRC_ObjectName* next, int type, int minLength)
{
    const bool prevCustom = prev && prev->isCustom();
    const bool nextCustom = next && next->isCustom();
    if (!prevCustom && !nextCustom)
        return QString();
    if (!prev)
        return getBaseName(next->value(), type, minLength, -1);
    const QString after = getBaseName(prev->value(), type, minLength, 1);
    if (next && after == next->value())
        return prev->value();
    return after;
}

bool KRC_NameHelper::extractNumericalPart(
    const QString& name, QStringList& parts, int& index, int& value, bool tailOnly)
{
    static QRegExp separator = separatorExpression();
    parts.clear();
    QString head;
    QString tail;
    splitAtLastSeparator(name, separator, head, tail);

    int start = 0;
    int end = 0;
    if (!tail.isEmpty() && findLastDigitRun(tail, start, end)) {
        parts.append(head);
        appendIfNotEmpty(parts, tail.left(start));
        index = parts.size();
        parts.append(tail.mid(start, end - start));
        appendIfNotEmpty(parts, tail.mid(end));
    } else {
        if (!tail.isEmpty() && tailOnly)
            return false;
        if (!findLastDigitRun(head, start, end))
            return false;
        appendIfNotEmpty(parts, head.left(start));
        index = parts.size();
        parts.append(head.mid(start, end - start));
        appendIfNotEmpty(parts, head.mid(end));
        parts.append(tail);
    }

    const std::optional<int> number = asInteger(parts.at(index));
    value = number.value_or(0);
    return number.has_value();
}

QString KRC_NameHelper::getPreferedNewObjName(
    const KRC_NamingRules::ObjRules& rules, const KRC_ObjectName* prev, const KRC_ObjectName* next)
{
    const int rule = rules.autoIncrementRule();
    if (rule != KRC_NamingRules::Rule_ByN)
        return getBaseName(prev, next, rule, getLeadingSpaces(rules));
    return proposeByN(rules.autoIncrementValue(), getLeadingSpaces(rules), prev, next);
}

class KRC_NameHelperPrivate
{
public:
    explicit KRC_NameHelperPrivate(KRC_KrolleProject* view)
        : project(view)
    {
    }

    // The project's rules; a project that keeps no records names by the preferences.
    const KRC_NamingRules& rules() const
    {
        const KRC_NamingRules* own = project->namingRules();
        return own ? *own : preferenceRules;
    }

    KRC_KrolleProject* project;
    KRC_NamingRules preferenceRules;
};

namespace {

using Krolle::Panel_t;
using Krolle::Shot_t;

const KRC_ObjectName* storedName(const Shot_t& shot)
{
    const KRC_SceneInfo* info = shot.sceneInfo();
    return info ? &info->name() : nullptr;
}

const KRC_ObjectName* storedSequenceName(const Shot_t& shot)
{
    const KRC_SceneInfo* info = shot.sceneInfo();
    return info ? &info->sequenceName() : nullptr;
}

const KRC_ObjectName* storedName(const Panel_t& panel)
{
    const KRC_PanelInfo* info = panel.panelInfo();
    return info ? &info->name() : nullptr;
}

const KRC_ObjectName* customName(const Panel_t& panel)
{
    const KRC_ObjectName* name = storedName(panel);
    return name && name->isCustom() ? name : nullptr;
}

struct Neighbours
{
    const KRC_ObjectName* prev = nullptr;
    const KRC_ObjectName* next = nullptr;
};

// The object's own name on one side of the new object, its neighbour's on the side
// that `after` names.
Neighbours around(const KRC_ObjectName* own, const KRC_ObjectName* neighbour, bool after)
{
    return after ? Neighbours { own, neighbour } : Neighbours { neighbour, own };
}

// The names of a shot and of its neighbour, as `nameOf` reads them from the shots.
template <class NameOf>
Neighbours shotNeighbours(const KRC_KrolleProject& project, const SC_Id& shotId, bool after, NameOf nameOf)
{
    const Shot_t shot = project.getShotByID(shotId);
    if (shot.isInvalid())
        return Neighbours();
    const Shot_t neighbour = after ? project.next(shot) : project.prev(shot);
    return around(nameOf(shot), neighbour.isValid() ? nameOf(neighbour) : nullptr, after);
}

// The places of a shot's panels, as a walk of the shot finds them.
struct PanelPlaces
{
    std::vector<bool> isAuto;
    std::set<QString> customNames;
    int askedPlace = -1;
    const KRC_ObjectName* askedCustom = nullptr;
};

PanelPlaces placesOf(const KRC_KrolleProject& project, const Panel_t& asked)
{
    PanelPlaces places;
    const Shot_t& shot = asked.shot();
    for (auto it = project.beginPanel(shot), end = project.endPanel(shot); it != end; ++it) {
        const Panel_t& panel = *it;
        const bool isAsked = panel.id() == asked.id();
        const KRC_ObjectName* custom = customName(panel);
        if (custom) {
            if (isAsked) {
                places.askedCustom = custom;
                break;
            }
            places.customNames.insert(custom->value());
        } else if (isAsked && places.askedPlace < 0) {
            places.askedPlace = int(places.isAuto.size());
        }
        places.isAuto.push_back(!custom);
    }
    return places;
}

// The series index whose name the asked auto-named panel takes. Each auto panel
// takes the first name from its own place on that no custom name and no auto panel
// before it holds. The series never repeats a name, so the indices taken grow
// with the places and every index up to the last one taken is held: the search
// goes on from there, and only the custom names need looking up.
int autoIndexOf(const PanelPlaces& places, const SeriesNamer& namer)
{
    if (places.customNames.empty())
        return places.askedPlace;
    int index = -1;
    for (int place = 0; place <= places.askedPlace; ++place) {
        if (!places.isAuto[place])
            continue;
        index = std::max(place, index + 1);
        while (places.customNames.count(namer.at(index)) != 0)
            ++index;
    }
    return index;
}

} // namespace

KRC_NameHelper::KRC_NameHelper(KRC_KrolleProject* project)
    : d(new KRC_NameHelperPrivate(project))
{
}

KRC_NameHelper::~KRC_NameHelper()
{
    delete d;
}

QString KRC_NameHelper::getPanelName(const Panel_t& panel) const
{
    if (panel.isInvalid())
        return QStringLiteral("");
    const PanelPlaces places = placesOf(*d->project, panel);
    if (places.askedCustom)
        return places.askedCustom->value();

    const SeriesNamer namer(d->rules().panelRules());
    if (places.askedPlace < 0) {
        const unsigned index = d->project->getPanelNdx(panel, true);
        return index == KRC_KrolleProject::invalidNdx ? QStringLiteral("") : namer.at(int(index));
    }
    return namer.at(autoIndexOf(places, namer));
}

QString KRC_NameHelper::getSceneName(const Shot_t& shot) const
{
    const unsigned index = d->project->getShotNdx(shot);
    return index == KRC_KrolleProject::invalidNdx ? QString() : getSceneName(int(index));
}

QString KRC_NameHelper::getPanelName(int index, const std::set<QString>& taken) const
{
    return SeriesNamer(d->rules().panelRules()).firstFree(index, taken);
}

QString KRC_NameHelper::getSceneName(int index) const
{
    return getName(d->rules().shotRules(), index);
}

QString KRC_NameHelper::getSequenceName(int index) const
{
    return getName(d->rules().sequenceRules(), index);
}

QString KRC_NameHelper::getActName(int index) const
{
    return QString::number(index + 1);
}

QString KRC_NameHelper::getPreferedNewSceneName(const SC_Id& shotId, bool after) const
{
    const Neighbours names
        = shotNeighbours(*d->project, shotId, after, [](const Shot_t& shot) { return storedName(shot); });
    return getPreferedNewObjName(d->rules().shotRules(), names.prev, names.next);
}

QString KRC_NameHelper::getPreferedNewSequenceName(const SC_Id& shotId, bool after) const
{
    const Neighbours names = shotNeighbours(
        *d->project, shotId, after, [](const Shot_t& shot) { return storedSequenceName(shot); });
    // Two shots that share one record are in the one sequence it names.
    if (names.prev && names.prev == names.next)
        return names.prev->value();
    return getPreferedNewObjName(d->rules().sequenceRules(), names.prev, names.next);
}

QString KRC_NameHelper::getPreferedNewPanelName(const Shot_t& shot, const SC_Id& panelId, bool after) const
{
    Neighbours names;
    const Panel_t panel = d->project->getPanelByID(panelId);
    if (panel.isValid() && panel.shot() == shot) {
        const Panel_t neighbour = after ? d->project->next(panel) : d->project->prev(panel);
        const bool sameShot = neighbour.isValid() && neighbour.shot() == shot;
        names = around(storedName(panel), sameShot ? storedName(neighbour) : nullptr, after);
    }
    return getPreferedNewObjName(d->rules().panelRules(), names.prev, names.next);
}

bool KRC_NameHelper::shotNameFollowsRules(const SC_Id& shotId) const
{
    const Shot_t shot = d->project->getShotByID(shotId);
    if (shot.isInvalid())
        return false;
    const Shot_t prev = d->project->prev(shot);
    const Shot_t next = d->project->next(shot);
    const QString proposal = getPreferedNewObjName(d->rules().shotRules(),
        prev.isValid() ? storedName(prev) : nullptr, next.isValid() ? storedName(next) : nullptr);
    return shot.name() == proposal;
}
