#include "batch/contact_sheet.h"

#include "batch/printable.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// The page around the data; the data follow kDataStart as elements of one array.
const char* const kTop = R"html(<!doctype html>
<html lang="en"><head><meta charset="utf-8"><title>Contact sheet</title>
<meta name="viewport" content="width=device-width">
<style>
:root { color-scheme: light dark; --line: #8884; --bad: #c62828; --odd: #b26a00; }
body { margin: 0; font: 14px/1.4 system-ui, sans-serif; }
header { position: sticky; top: 0; z-index: 1; display: flex; flex-wrap: wrap; gap: 8px; align-items: center;
  padding: 10px 16px; background: Canvas; border-bottom: 1px solid var(--line); }
input { flex: 1 1 16em; font: inherit; padding: 6px 10px; border: 1px solid var(--line); border-radius: 6px; }
button { font: inherit; padding: 6px 12px; border: 1px solid var(--line); border-radius: 6px;
  background: Canvas; color: CanvasText; cursor: pointer; }
button[aria-pressed=true] { background: CanvasText; color: Canvas; }
main { position: relative; margin: 16px; }
article { position: absolute; box-sizing: border-box; padding: 8px; border: 1px solid var(--line);
  border-radius: 8px; overflow: hidden; }
article a.picture { display: flex; height: 180px; background: #8881; border-radius: 4px; overflow: hidden;
  align-items: flex-start; justify-content: center; }
article img { width: 100%; height: 180px; object-fit: cover; object-position: top; }
article p { margin: 4px 0 0; overflow: hidden; text-overflow: ellipsis; white-space: nowrap; }
article .why { white-space: normal; color: var(--bad); padding: 8px; overflow-wrap: anywhere; }
.odd { color: var(--odd); }
#states { display: flex; flex-wrap: wrap; gap: 8px; }
small { opacity: .7; }
</style></head><body>
<header><input type="search" placeholder="Search address, file, reason" aria-label="Search">
<span id="states"></span><small id="count"></small></header><main></main>
<script>
const entries = [
)html";

const char* const kBottom = R"html(
].map(e => ({ line: e[0], text: e[1], state: e[2], file: e[3], thumbnail: e[4], width: e[5], height: e[6],
  reason: e[7], note: e[8] }));
for (const e of entries) e.search = [e.text, e.file, e.reason, e.note].join('\n').toLowerCase();

const boxWidth = 260, boxHeight = 272, gap = 12;
const main = document.querySelector('main'), search = document.querySelector('input');
let state = 'all', shown = entries, drawn = new Map();

function element(name, parent, text, className) {
  const made = document.createElement(name);
  if (text) made.textContent = text;
  if (className) made.className = className;
  return parent.appendChild(made);
}

function drawBox(e) {
  const box = document.createElement('article');
  const link = element('a', box, '', 'picture');
  if (e.file) link.href = e.file, link.target = '_blank';
  if (e.thumbnail || e.file) {
    const image = element('img', link);
    image.alt = '';
    image.src = e.thumbnail || e.file;
  } else {
    element('span', link, e.reason || e.state, 'why');
  }
  element('p', box, e.text).title = e.text;
  const facts = e.width > 0 ? e.width + ' \u00d7 ' + e.height + ' px' : e.state;
  element('small', element('p', box), 'line ' + e.line + ' \u00b7 ' + facts);
  if (e.note) element('p', box, e.note, 'odd');
  return box;
}

function draw() {
  const columns = Math.max(1, Math.floor((main.clientWidth + gap) / (boxWidth + gap)));
  const rowHeight = boxHeight + gap;
  main.style.height = Math.ceil(shown.length / columns) * rowHeight + 'px';
  const top = scrollY - main.offsetTop;
  const first = Math.max(0, Math.floor(top / rowHeight) - 1) * columns;
  const last = Math.min(shown.length, (Math.ceil((top + innerHeight) / rowHeight) + 1) * columns);
  const wanted = new Map();
  for (let i = first; i < last; ++i) wanted.set(shown[i], i);
  for (const [e, box] of drawn) if (!wanted.has(e)) box.remove(), drawn.delete(e);
  for (const [e, i] of wanted) {
    if (!drawn.has(e)) drawn.set(e, main.appendChild(drawBox(e)));
    Object.assign(drawn.get(e).style, { width: boxWidth + 'px', height: boxHeight + 'px',
      left: i % columns * (boxWidth + gap) + 'px', top: Math.floor(i / columns) * rowHeight + 'px' });
  }
}

const isState = { all: () => true, converted: e => e.state === 'converted' && !e.note,
  'HTTP error': e => /^HTTP \d/.test(e.note), blank: e => e.note.includes('blank, one colour'),
  doubtful: e => e.state === 'converted' && e.note && !isState['HTTP error'](e) && !isState.blank(e),
  failed: e => e.state === 'failed', skipped: e => e.state === 'skipped' };

function filter() {
  const words = search.value.toLowerCase().split(/\s+/).filter(word => word);
  shown = entries.filter(e => isState[state](e) && words.every(word => e.search.includes(word)));
  document.getElementById('count').textContent = shown.length + ' of ' + entries.length;
  scrollTo(0, 0);
  draw();
}

for (const name of Object.keys(isState)) {
  const count = entries.filter(isState[name]).length;
  if (!count && name !== 'all') continue;
  const button = element('button', document.getElementById('states'), name + ' ' + count);
  button.setAttribute('aria-pressed', name === state);
  button.onclick = () => {
    state = name;
    for (const other of document.querySelectorAll('button'))
      other.setAttribute('aria-pressed', other === button);
    filter();
  };
}
search.oninput = filter;
addEventListener('scroll', draw, { passive: true });
addEventListener('resize', draw);
filter();
</script></body></html>
)html";

/// JSON that may stand inside a script element: nothing in it can close the element.
QByteArray scriptSafe(const QJsonArray& array)
{
    QByteArray json = QJsonDocument(array).toJson(QJsonDocument::Compact);
    return json.replace('<', "\\u003c");
}

} // namespace

Result<void> ContactSheet::open(const QString& path)
{
    m_file.setFileName(path);
    m_folder = QFileInfo(path).absoluteDir();
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        m_file.write(kTop);
        return {};
    }
    return Error{Error::Kind::Io, u"%1 cannot be written: %2"_s.arg(path, m_file.errorString()), {}};
}

void ContactSheet::add(const Entry& entry, const Outcome& outcome)
{
    const QJsonArray fields{entry.line,
                            printable(entry.text),
                            stateName(outcome.state),
                            linkTo(outcome.file),
                            linkTo(outcome.thumbnail),
                            outcome.size.width(),
                            outcome.size.height(),
                            printable(outcome.reason),
                            outcome.note};
    m_file.write((m_empty ? "" : ",\n") + scriptSafe(fields));
    m_empty = false;
}

Result<void> ContactSheet::close()
{
    m_file.write(kBottom);
    m_file.flush();
    if (m_file.error() != QFileDevice::NoError)
        return Error{
            Error::Kind::Io, u"%1 cannot be written: %2"_s.arg(m_file.fileName(), m_file.errorString()), {}};
    m_file.close();
    return {};
}

/// An address relative to the sheet.
QString ContactSheet::linkTo(const QString& file) const
{
    if (file.isEmpty()) return {};
    return u"./"_s + QString::fromLatin1(QUrl::toPercentEncoding(m_folder.relativeFilePath(file), "/"));
}

} // namespace vistrel
