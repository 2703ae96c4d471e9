# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What keeps a page from being read: by a screen reader, at the keyboard, with weak eyes, by a thumb."""

_LEAST_CONTRAST = 4.5
_LEAST_TOUCH = 24  # pixels, beside what surrounds it

_ROLES_WITH_NAMES = ("link", "button", "textbox", "combobox", "image", "search", "searchbox")

# Text against what lies behind it, as painted. A picture behind a text would need another measure: there is none.
_CONTRASTS = """
(() => {
 const parts = text => text.match(/[0-9.]+/g).map(Number);
 const light = c => { const l = c.slice(0, 3).map(v => (v /= 255) <= 0.03928 ? v / 12.92 : ((v + 0.055) / 1.055) ** 2.4);
  return 0.2126 * l[0] + 0.7152 * l[1] + 0.0722 * l[2]; };
 const behind = e => { for (; e; e = e.parentElement) { const c = parts(getComputedStyle(e).backgroundColor);
  if (c.length < 4 || c[3] === 1) return c; } return [255, 255, 255]; };
 const faults = [];
 for (const e of document.querySelectorAll("body *")) {
  const own = [...e.childNodes].some(n => n.nodeType === 3 && n.data.trim()) || (e.matches("input,select") && !e.hidden);
  if (!own || e.closest("script,style") || !e.getClientRects().length) continue;
  const a = light(parts(getComputedStyle(e).color)), b = light(behind(e));
  const ratio = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
  if (ratio < LEAST) faults.push(e.tagName + " " + (e.textContent || e.id).trim().slice(0, 30) + ": " + ratio.toFixed(1));
 }
 return faults;
})()
"""

_TOUCHED = """
[...document.querySelectorAll("a,button,input,select")].filter(e => e.getClientRects().length).map(e => [e, e.getBoundingClientRect()])
 .filter(([e, r]) => r.height < LEAST || r.width < LEAST).map(([e, r]) => e.tagName + " " + e.textContent.trim() + " " + Math.round(r.width) + "x" + Math.round(r.height))
"""

_HEADINGS = "[...document.querySelectorAll('h1,h2,h3,h4')].map(e => [Number(e.tagName[1]), e.textContent.trim()])"

_REACHED = """
(() => { const e = document.activeElement; if (!e || e === document.body) return null;
 const style = getComputedStyle(e); return {what: e.id || e.textContent.trim() || (e.querySelector("img") || {}).alt || e.tagName,
 seen: style.outlineStyle !== "none" && parseFloat(style.outlineWidth) >= 2}; })()
"""


def faults(browser):
    """Of the page as it is opened, on the screen that the browser is now."""
    found = []
    if browser.value("document.documentElement.lang") != "fa" or browser.value("document.documentElement.dir") != "rtl":
        found.append("the page does not say that it is Persian, right to left")
    if not browser.value("document.title.trim()"):
        found.append("the page has no title")
    found += _headings(browser.value(_HEADINGS))
    spoken = browser.spoken()
    for landmark in ("banner", "main"):
        if not any(role == landmark for role, _ in spoken):
            found.append(f"no {landmark}")
    found += [f"a {role} without a name" for role, name in spoken if role in _ROLES_WITH_NAMES and not name.strip()]
    found += ["an image without words" for _ in range(browser.value("document.querySelectorAll('img:not([alt]),img[alt=\"\"]').length"))]
    found += ["weak: " + fault for fault in browser.value(_CONTRASTS.replace("LEAST", str(_LEAST_CONTRAST)))]
    found += ["small: " + fault for fault in browser.value(_TOUCHED.replace("LEAST", str(_LEAST_TOUCH)))]
    if browser.value("document.documentElement.scrollWidth > document.documentElement.clientWidth"):
        found.append("the page is wider than the screen")
    found += _keyboard(browser)
    return found


def _headings(headings):
    levels = [level for level, _ in headings]
    found = [] if levels.count(1) == 1 else [f"{levels.count(1)} first headings"]
    found += [f"heading {text!r} leaves out a level" for (level, text), before in zip(headings[1:], levels) if level > before + 1]
    return found + ["an empty heading" for _, text in headings if not text]


def _keyboard(browser):
    """Tab reaches every control and every link in turn, each with a visible focus."""
    browser.value("document.activeElement.blur()")
    wanted = browser.value("[...document.querySelectorAll('a[href],button,input,select')].filter(e => e.getClientRects().length).length")
    reached = []
    for _ in range(wanted):
        browser.press("Tab")
        reached.append(browser.value(_REACHED))
    found = [f"the focus on {place['what']!r} is not to be seen" for place in reached if place and not place["seen"]]
    missing = sum(place is None for place in reached)
    return found + ([f"{missing} of {wanted} places are not reached by Tab"] if missing else [])
