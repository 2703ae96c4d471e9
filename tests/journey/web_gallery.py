#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Cars are ticked for the web and written into a folder; what a visitor gets is read, filtered and looked at in a browser."""

import os

from lib import car_labels, work
from lib.browser import Browser
from lib.journey import check, run, step
from lib.page_faults import faults
from lib.waiting import wait_for

TICK = "نمایش در وب"
EXPORT = "خروجی وب"
FOLDER = "پوشه خروجی :"
TITLE = "عنوان صفحه :"
WRITE = "نوشتن صفحه"
CLOSE = "بستن"
HOSTILE = "<script>document.title='broken'</script> & \"آریا\""
TICKED = 20  # some of them sold

# Width, height and whether it is dark.
SCREENS = (("telephone", 390, 844, False), ("telephone-dark", 390, 844, True), ("desktop", 1366, 768, False),
           ("desktop-dark", 1366, 768, True))

# What a page must not be, and what is told of it then.
PLANTED = (
    ("a picture without words", ' alt="', ' data-alt="', "an image without words"),
    ("a text that is too weak", "--text:#1d2433", "--text:#9aa2b0", "weak: "),
    ("no language", 'lang="fa"', "", "Persian"),
    ("a focus that is not seen", "outline:3px solid", "outline:0 solid", "not to be seen"),
    ("a field without a name", "سال تولید از", "", "a textbox without a name"),
    ("a control that Tab passes by", '<button type="reset"', '<button type="reset" tabindex="-1"', "not reached"),
    ("a button too small for a thumb", "min-height:44px", "height:14px;padding:0", "small: "),
    ("something wider than the screen", "body{margin:0", "body{min-width:2000px;margin:0", "wider"),
)

SHOWN = "[...document.querySelectorAll('.car')].filter(e => !e.hidden).map(e => [e.dataset.brand, e.dataset.year, e.dataset.price])"


def web_gallery(office):
    folder = os.path.join(office.desktop.home, "web")
    office.start()
    office.log_in_demo()
    table = office.open_list(car_labels.CARS)
    wait_for(lambda: table.row_count > TICKED, "the cars to be listed")

    step("the newest cars are ticked")
    tick(office, table)
    step("the page is written")
    export(office, folder)
    wanted = ticked_cars(office)
    with Browser(office.desktop) as browser:
        step("a visitor reads it")
        read(office, browser, folder, wanted)
        step("and looks for a car")
        look_for(browser, wanted)
        step("nothing was asked of anybody else")
        strangers = [address for address in browser.requests if not address.startswith(f"file://{folder}/")]
        check(not strangers, f"the page asks for nothing but its own files: {strangers}")
        step("the reader finds what is wrong with a page")
        find_planted(browser, folder)

    step("sold meanwhile: the next page is without the car")
    office.database.rows("UPDATE AutomobilInformations SET bSold=1 WHERE iID=" + wanted[0]["iID"])
    export(office, folder)
    with Browser(office.desktop) as browser:
        browser.open(os.path.join(folder, "index.html"))
        check(len(browser.value(SHOWN)) == len(wanted) - 1, "the sold car is gone from the page")
    office.leave()


def tick(office, table):
    office.driver.select_row(table, 0)
    office.driver.focus(table, office.main)
    for _ in range(TICKED - 1):
        office.input.keys("shift+Down")
    wait_for(lambda: len(table.selected_rows) == TICKED, "the rows to be marked")
    work.choose_from_menu(office, lambda: office.driver.keys(office.main, "shift+F10"), TICK,
                          ("tick", "Marked cars are ticked for the web"))
    wait_for(lambda: office.database.number("SELECT COUNT(*) FROM PublicCars") == TICKED, "the ticks")


def ticked_cars(office):
    """What may be shown, as the tables have it."""
    return office.database.rows(
        "SELECT ai.iID, b.sName AS brand, ai.iYear AS year, ai.dAmount AS amount, ai.sNumOfPlates AS plate, ai.sChassisNum AS chassis,"
        " p.sFamily AS owner FROM PublicCars w JOIN AutomobilInformations ai ON ai.iID=w.iCarID"
        " LEFT JOIN CarBrands b ON b.iID=ai.iAutomobilType LEFT JOIN Persons p ON p.iID=ai.iPersonID"
        " WHERE ai.bSold=0 AND ai.iArchiveUserID=0 AND ai.iStatus=0 ORDER BY ai.iID")


def export(office, folder):
    office.command(EXPORT)
    window = office.tree.window(EXPORT)
    office.driver.enter(TITLE, HOSTILE, window)
    office.driver.enter(FOLDER, folder, window)
    office.driver.press(WRITE, window)
    wait_for(lambda: any("نوشته شد" in node.name for node in window.shown_descendants() if node.role == "label"), "the page to be written")
    office.pictures.take("written", "The page for the web is written")
    office.driver.press(CLOSE, window)
    office.tree.no_window(EXPORT)


def read(office, browser, folder, wanted):
    page = os.path.join(folder, "index.html")
    for name, width, height, dark in SCREENS:
        browser.be(width, height, dark=dark)
        browser.open(page)
        found = faults(browser)
        browser.value("scrollTo(0, 0)")
        office.pictures.take(name, f"The page for the web: {name}", of=browser.picture)
        check(not found, f"everybody can read the page ({name}): {found}")
    check(browser.value("document.title") == HOSTILE, "what is typed is text, whatever it holds")
    shown = browser.value(SHOWN)
    check(sorted(brand for brand, _, _ in shown) == sorted(car["brand"] for car in wanted), f"the ticked cars are shown: {shown}")
    prices = sorted(float(price or 0) for _, _, price in shown)
    check(prices == sorted(float(car["amount"]) for car in wanted), f"their prices: {prices}")
    check(browser.value("[...document.images].every(i => (i.loading = 'eager', true))"), "pictures")
    wait_for(lambda: browser.value("[...document.images].every(i => i.complete && i.naturalWidth > 0)"), "every picture to be there")
    with open(page, encoding="utf-8") as file:
        html = file.read()
    for car in wanted:
        for column in ("plate", "chassis", "owner"):
            check(not car[column] or car[column] not in html, f"the page keeps the {column} of {car['iID']} to itself")


def look_for(browser, wanted):
    brand = wanted[0]["brand"]
    browser.value("document.getElementById('brand').value = " + repr(brand))
    browser.value("document.getElementById('brand').dispatchEvent(new Event('input', {bubbles: true}))")
    of_brand = browser.value(SHOWN)
    check(len(of_brand) == sum(car["brand"] == brand for car in wanted), f"the cars of {brand}: {of_brand}")
    forget(browser)
    years = sorted(int(car["year"]) for car in wanted)
    fill(browser, "yearFrom", persian(years[len(years) // 2]))
    check(len(browser.value(SHOWN)) == sum(year >= years[len(years) // 2] for year in years), "the cars from a year on")
    forget(browser)
    prices = sorted(int(float(car["amount"])) for car in wanted)
    fill(browser, "priceTo", persian(prices[1]))
    check(len(browser.value(SHOWN)) == sum(0 < price <= prices[1] for price in prices), "the cars up to a price")
    fill(browser, "yearFrom", "1999")
    fill(browser, "yearTo", "2000")
    check(browser.value(SHOWN) == [], "no car of a year that none is of")
    told = browser.value("document.getElementById('count').textContent")
    check("نیست" in told, f"which is told: {told}")
    forget(browser)


def fill(browser, field, text):
    browser.value(f"document.getElementById('{field}').focus()")
    browser.type(text)


def forget(browser):
    """The button that shows all cars again, at the keyboard."""
    browser.value("document.querySelector('button[type=reset]').focus()")
    browser.press("Enter")
    wait_for(lambda: len(browser.value(SHOWN)) == browser.value("document.querySelectorAll('.car').length"), "all cars again")


def persian(number):
    return str(number).translate({ord("0") + digit: chr(0x6F0 + digit) for digit in range(10)})


def find_planted(browser, folder):
    with open(os.path.join(folder, "index.html"), encoding="utf-8") as file:
        html = file.read()
    broken = os.path.join(folder, "broken.html")
    for what, right, wrong, told in PLANTED:
        check(right in html, f"{right!r} is in the page")
        with open(broken, "w", encoding="utf-8") as file:
            file.write(html.replace(right, wrong))
        browser.be(390, 844)
        browser.open(broken)
        found = faults(browser)
        check(any(told in fault for fault in found), f"{what} is found: {found}")
    os.remove(broken)


if __name__ == "__main__":
    run(web_gallery, __doc__)
