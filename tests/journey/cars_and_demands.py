#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A car from its catalog to its archive: registered, wanted by a customer, sold, put into a contract, archived."""

import os

from lib import car_labels, cars, catalog, demands, labels, photo, work
from lib.figures import same
from lib.journey import check, run, step
from lib.waiting import wait_for

from prepare_office import PERSONS

OWNER, CUSTOMER = PERSONS
CATALOG = ("پژو", "پارس", ("سال", "ELX"))
COLOURS = ("سفید صدفی", "مشکی")
ACCESSORIES = ("زاپاس", "جک", "سیستم صوتی")
FEATURES = ("سانروف", "دوربین عقب")
TARIFF = ("نقل و انتقال سواری", 12_300_000, "تعرفه سال جاری")

# The car's first page, by label and column, as typed.
CODES = (
    ("شماره پلاک :", "sNumOfPlates", "12 ب 345 ایران 67"),
    ("شماره شاسي :", "sChassisNum", "NAAN01CE8NK551122"),
    ("شماره موتور :", "sNumOfEngines", "124K9081726"),
    ("VIN :", "sVIN", "1M8GDM9AXKP042788"),
    ("کارکرد(کيلومتر) :", "iFunction", "21000"),
    ("مبلغ :", "dAmount", "1600000000"),
    ("توضيحات ويژه :", "sDescSpecial", "بدون رنگ، یک دست"),
)
YEAR = "1402"
SOLD, PURCHASE, EXPENSES, REMAINING = 1_650_000_000, 1_480_000_000, 25_500_000, 1_700_000
PROFIT = SOLD - PURCHASE - EXPENSES - TARIFF[1] - REMAINING
AMOUNT_SPAN = (1_500_000_000, 1_700_000_000)


def cars_and_demands(office):
    office.start()
    office.log_in()
    table = office.open_list(car_labels.CARS, ("menu", "The menu of the car gallery"))
    office.tree.check_names(office.main)
    office.pictures.take("cars-empty", "The list of cars of a new office is empty")

    step("the catalog")
    fill_catalog(office)
    step("input values")
    fill_values(office)

    step("a new car given up leaves no row")
    give_up_car(office)
    step("a car is registered")
    register_car(office, table)
    check_car(office)

    step("a customer's demand with a reminder")
    demand_list = record_demand(office)
    step("the cars that fit the demand")
    look_for_cars(office, demand_list)

    step("the car is sold")
    table = office.open_list(car_labels.CARS)
    sell_car(office, table)

    step("a contract is copied from the car")
    write_contract(office)

    step("the car is archived")
    table = office.open_list(car_labels.CARS)
    archive_car(office, table)
    step("a brand in use is not deleted")
    keep_used_brand(office)

    step("a new start: the reminder is due, and everything is still there")
    office.leave()
    start_again(office)
    office.leave()


def fill_catalog(office):
    brand, model, classes = CATALOG
    window = catalog.open_catalog(office)
    office.pictures.take("catalog-empty", "The catalog is still empty: a brand has models, a model has classes")
    catalog.add_entry(office, window, car_labels.BRANDS, brand, refused=True)
    catalog.add_entry(office, window, car_labels.MODELS, model)
    for name in classes:
        catalog.add_entry(office, window, car_labels.CLASSES, name)
    office.pictures.take("catalog", "A brand, a model and its classes")
    starting_set = os.path.join(os.path.dirname(office.program), "..", "lib", "CarCatalog", "car_catalog.tsv")
    catalog.import_starting_set(office, window, os.path.realpath(starting_set),
                                ("catalog-import", "The starting set of brands asks before it is added"))
    catalog.select_entry(office, window, car_labels.BRANDS, brand)
    catalog.select_entry(office, window, car_labels.MODELS, model)
    wait_for(lambda: set(classes) <= set(catalog.names(office.tree.find("tree", car_labels.CLASSES, window),
                                                       car_labels.CLASSES)), "the own classes beside the imported ones")
    office.pictures.take("catalog-imported", "What was entered by hand stands among what was imported")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(car_labels.CATALOG)


def fill_values(office):
    window = catalog.open_parameters(office)
    catalog.add_values(office, window, car_labels.FEATURES, FEATURES)
    catalog.add_values(office, window, car_labels.COLOURS, COLOURS)
    office.pictures.take("parameters", "Colours among the input values")
    editor, title = catalog.add_value(office, window, car_labels.COLOURS, COLOURS[0])
    office.message(labels.WARNING, car_labels.NAME_TAKEN, picture=("name-taken", "A name is entered once only"))
    office.driver.press(labels.CANCEL, editor)
    office.tree.no_window(title)
    office.driver.press(labels.BACK, window)
    office.tree.no_window(car_labels.PARAMETERS)


def registered(office):
    return office.database.rows("SELECT iID, iCode FROM AutomobilInformations ORDER BY iID")


def give_up_car(office):
    editor = cars.new_car(office)
    check(len(registered(office)) == 1, "the new car's placeholder stands in the table")
    office.pictures.take("car-empty", "A new car with the next code and the current year")
    office.driver.enter("شماره موتور :", "124K", editor)
    office.driver.press(labels.CANCEL, editor)
    office.tree.no_window(car_labels.CAR_NEW)
    wait_for(lambda: not registered(office), "no row to be left")


def register_car(office, table):
    editor = cars.new_car(office)
    office.driver.press(labels.OK, editor)
    office.message(labels.WARNING, car_labels.NO_OWNER,
                   picture=("owner-missing", "A car without its owner is not saved; the picker comes by itself"))
    picker = office.tree.window(labels.PICK_PERSON)
    work.take_person(office, picker, editor, cars.OWNER, OWNER, OWNER.split(" ")[1])

    brand, model, classes = CATALOG
    for label, text in ((car_labels.BRAND, brand), (car_labels.MODEL, model), (car_labels.CLASS, classes[1]),
                        (car_labels.COLOUR, COLOURS[0]), (car_labels.FUEL, "بنزین"), (car_labels.USAGE, "سواری")):
        office.driver.choose(label, text, editor)
    office.driver.enter(car_labels.YEAR, work.typed(YEAR, office), editor)
    for label, _, text in CODES:
        office.driver.enter(label, text, editor)
    cars.choose_values(office, editor, car_labels.ACCESSORIES_HAD, car_labels.ACCESSORIES, ACCESSORIES,
                       ("accessories", "Several accessories are entered and ticked"))
    # The jack is missing after all: the field is a text, and the list of missing items follows from it.
    office.driver.enter(car_labels.ACCESSORIES_HAD, f"{ACCESSORIES[0]}، {ACCESSORIES[2]}", editor)
    office.driver.press(car_labels.more(car_labels.ACCESSORIES_LACKING), editor)
    cars.holds(office, editor, car_labels.ACCESSORIES_LACKING, ACCESSORIES[1])
    path = photo.write_jpeg(os.path.join(office.desktop.home, "car.jpg"))
    cars.take_picture(office, editor, path)
    office.pictures.take("car-filled", "A car with owner, details and picture")
    cars.save(office, editor, car_labels.CAR_NEW)
    wait_for(lambda: table.row_count == 1, "the car in the list")
    row = table.row(0)
    wanted = {car_labels.COLUMN_OWNER: OWNER, car_labels.COLUMN_BRAND: brand, car_labels.COLUMN_MODEL: model,
              car_labels.COLUMN_CLASS: classes[1], car_labels.COLUMN_YEAR: YEAR, car_labels.COLUMN_COLOUR: COLOURS[0],
              car_labels.COLUMN_AMOUNT: "1,600,000,000", car_labels.COLUMN_SOLD: "-"}
    check({title: row[title] for title in wanted} == wanted, f"the car's row {row}")
    office.pictures.take("cars", "The car stands in the list")


def check_car(office):
    columns = ",".join(column for _, column, _ in CODES)
    row = office.database.row(f"SELECT {columns}, iFuel, iUsageType, iYear, sAccessories, sFractionalParts,"
                              " HEX(LEFT(oPicture,3)) AS picture FROM AutomobilInformations")
    for _, column, text in CODES:
        number = text.isdigit()
        check(same(float(row[column]), float(text)) if number else row[column] == text, f"{column} is {row[column]!r}")
    check(row["picture"] == "FFD8FF", f"the picture is stored: {row['picture']}")
    check(row["iFuel"] == "1" and row["iUsageType"] == "1" and row["iYear"] == YEAR, "fuel, use and year")
    check(row["sAccessories"] == f"{ACCESSORIES[0]}، {ACCESSORIES[2]}", f"the accessories {row['sAccessories']!r}")
    check(row["sFractionalParts"] == ACCESSORIES[1], f"the lacking ones {row['sFractionalParts']!r}")
    named = office.database.row(
        "SELECT p.sName2, b.sName AS brand, m.sName AS model, c.sName AS class, i.sName AS colour"
        " FROM AutomobilInformations ai, Persons p, CarBrands b, CarModels m, CarClasses c, Items i WHERE p.iID=ai.iPersonID"
        " AND b.iID=ai.iAutomobilType AND m.iID=ai.iModel AND c.iID=ai.iBrigade AND i.iID=ai.iColor")
    check(list(named.values()) == [OWNER, CATALOG[0], CATALOG[1], CATALOG[2][1], COLOURS[0]], f"what the keys name: {named}")


def record_demand(office):
    table = office.open_list(car_labels.DEMANDS)
    office.tree.check_names(office.main)
    demands.record(office, CUSTOMER, {
        car_labels.WANTED: CATALOG[0], car_labels.COLOUR: COLOURS[0], car_labels.FACILITIES: FEATURES[0]},
        {car_labels.YEAR_FROM: YEAR, car_labels.YEAR_UP_TO: "1403", car_labels.AMOUNT_FROM: AMOUNT_SPAN[0],
         car_labels.AMOUNT_UP_TO: AMOUNT_SPAN[1], car_labels.SPECIAL: "فقط بدون رنگ"})
    wait_for(lambda: table.row_count == 1, "the demand in the list")
    row = table.row(0)
    check(row[car_labels.COLUMN_CUSTOMER] == CUSTOMER and row[car_labels.COLUMN_BRAND] == CATALOG[0], f"the row {row}")
    office.pictures.take("demands", "The demand stands in the list")
    stored = office.database.row("SELECT d.*, a.iRecordID, a.iTable, a.sDesc AS reminder FROM AutomobilDemands d, Alarms a"
                                 " WHERE a.iID=d.iAlarmID")
    check(stored["iTable"] == "70" and stored["iRecordID"] == stored["iID"], f"the reminder is the demand's: {stored}")
    check(CUSTOMER in stored["reminder"], f"the reminder names the customer: {stored['reminder']}")
    check(same(float(stored["dAmountUpTo"]), AMOUNT_SPAN[1]) and stored["iModelFrom"] == YEAR, "the stored wishes")
    feature = office.database.value(f"SELECT sName FROM Items WHERE iID={stored['iFacilities']}")
    check(feature == FEATURES[0], f"the wanted feature is {feature}")
    return table


def look_for_cars(office, table):
    office.driver.select_row(table, 0)
    office.command(car_labels.MATCHING_CARS)
    window = office.tree.window(car_labels.MATCHING_CARS)
    office.tree.check_names(window)
    matches = office.tree.find("tree", car_labels.MATCHING_CARS, window)
    wait_for(lambda: matches.row_count == 1, "the one car that fits")
    row = matches.row(0)
    check(row[car_labels.COLUMN_FIT] == "100%" and row[car_labels.COLUMN_OWNER] == OWNER, f"the car fits wholly: {row}")
    office.pictures.take("matching-cars", "The cars that fit the demand, the best first")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(car_labels.MATCHING_CARS)

    office.driver.select_row(table, 0)
    office.command(car_labels.CARS)
    preset = office.tree.find("tree", car_labels.CARS, office.main)
    wait_for(lambda: preset.row_count == 1, "the car that the wishes find")
    for label, text in ((car_labels.BRAND, CATALOG[0]), (car_labels.COLOUR, COLOURS[0])):
        cars.holds(office, office.main, label, text)
    for label, number in ((car_labels.AMOUNT_FROM, AMOUNT_SPAN[0]), (car_labels.YEAR_FROM, int(YEAR))):
        check(same(office.tree.find("text", label, office.main).number, number), f"{label!r} is preset")
    office.pictures.take("preset", "The list of cars, searched by the wishes of the demand")

    office.driver.select_row(preset, 0)
    office.command(car_labels.MATCHING_DEMANDS)
    window = office.tree.window(car_labels.MATCHING_DEMANDS)
    asked = office.tree.find("tree", car_labels.MATCHING_DEMANDS, window)
    wait_for(lambda: [row[car_labels.COLUMN_CUSTOMER] for row in asked.rows()] == [CUSTOMER], "who asked for such a car")
    office.pictures.take("matching-demands", "And the other way round: who asked for this car")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(car_labels.MATCHING_DEMANDS)


def sell_car(office, table):
    editor = cars.open_car(office, table)
    work.open_page(office, editor, car_labels.SALE_PAGE)
    office.tree.check_names(editor)
    office.driver.check(car_labels.SOLD, editor)
    work.pick_person(office, editor, cars.BUYER, OWNER, OWNER.split(" ")[1])
    for label, amount in ((car_labels.SOLD_AMOUNT, SOLD), (car_labels.PURCHASE, PURCHASE),
                          (car_labels.EXPENSES, EXPENSES), (car_labels.NOTARY_REMAINING, REMAINING)):
        office.driver.enter(label, work.typed(amount, office), editor)
    pick_tariff(office, editor)
    profit = office.tree.find("text", car_labels.PROFIT, editor)
    wait_for(lambda: same(profit.number, PROFIT), lambda: f"the profit to be {PROFIT}; it is {profit.text!r}")
    office.driver.press(labels.OK, editor)
    office.message(labels.WARNING, car_labels.SAME_PARTIES, picture=("same-parties", "The owner cannot be the buyer"))
    work.pick_person(office, editor, cars.BUYER, CUSTOMER, CUSTOMER.split(" ")[1])
    office.pictures.take("sale", "The sale: buyer, costs, tariff, and the profit that follows from them")
    cars.save(office, editor, car_labels.CAR_EDIT)
    wait_for(lambda: table.row(0)[car_labels.COLUMN_SOLD] == car_labels.SOLD, "the list to show the sale")
    check(table.row(0)[car_labels.COLUMN_CAR_BUYER] == CUSTOMER, f"the buyer in the row {table.row(0)}")
    office.pictures.take("sold", "The list shows that the car is sold")
    check_sale(office)


def pick_tariff(office, editor):
    office.driver.press(car_labels.more(car_labels.NOTARY_COST), editor)
    window = office.tree.window(car_labels.TARIFFS)
    office.tree.check_names(window)
    table = catalog.add_tariff(office, window, *TARIFF, ("tariff", "A notary tariff is entered on the way"))
    office.driver.select_row(table, 0)
    office.pictures.take("tariffs", "The tariff is taken over from the list")
    office.driver.press(car_labels.TAKE, window)
    office.tree.no_window(car_labels.TARIFFS)
    cost = office.tree.find("text", car_labels.NOTARY_COST, editor)
    wait_for(lambda: same(cost.number, TARIFF[1]), "the notary cost to be the tariff's")


def check_sale(office):
    wanted = {"bSold": 1, "dSoldAmount": SOLD, "dPurchasePriceOfOwner": PURCHASE, "dAutomobilExpenses": EXPENSES,
              "dAmountPresence": TARIFF[1], "dRemainingPresence": REMAINING, "dProfitAndLoss": PROFIT}
    row = office.database.row(f"SELECT {','.join(wanted)}, p.sName2 FROM AutomobilInformations ai, Persons p"
                              " WHERE p.iID=ai.iPersonBuyerID")
    for column, value in wanted.items():
        check(same(float(row[column]), value), f"{column} is {row[column]}, not {value}")
    check(row["sName2"] == CUSTOMER, f"the buyer is {row['sName2']}")


def write_contract(office):
    table = office.open_contracts()
    before = table.row_count
    editor = work.new_contract(office)
    office.driver.press(car_labels.TAKE_CAR, editor)
    window = office.tree.window(car_labels.CARS)
    listed = office.tree.find("tree", car_labels.CARS, window)
    wait_for(lambda: listed.row_count == 1, "the car to choose from")
    office.driver.select_row(listed, 0)
    office.pictures.take("choose-car", "A contract takes its car from the register")
    office.driver.press(labels.OK, window)
    office.tree.no_window(car_labels.CARS)
    cars.holds(office, editor, work.party(0).name, OWNER)
    work.pick_person(office, editor, work.party(1), CUSTOMER, CUSTOMER.split(" ")[1])
    office.driver.enter(labels.AMOUNT, work.typed(SOLD, office), editor)
    office.pictures.take("contract-parties", "The owner has become the first party")
    work.open_page(office, editor, labels.MATTER_PAGE)
    for label, text in COPIED.items():
        cars.holds(office, editor, label, text)
    office.pictures.take("contract-car", "The vehicle's page is filled from the car")
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(labels.EDITOR_NEW)
    wait_for(lambda: table.row_count == before + 1, "the contract in the list")
    row = office.database.row("SELECT * FROM AutomobilContracts ORDER BY iID DESC LIMIT 1")
    wanted = {"sName1": OWNER, "sName2": CUSTOMER, "sAutomobilName": f"{CATALOG[0]} {CATALOG[1]}",
              "sBrigade": CATALOG[2][1], "sModel": YEAR, "sColor": COLOURS[0], "sAutomobilType": "سواری",
              "sFuel": "بنزین", "sNumOfPlates": CODES[0][2], "sChassisNum": CODES[1][2]}
    check({column: row[column] for column in wanted} == wanted, f"the contract's row {row}")
    check(same(float(row["dAmount"]), SOLD), f"the contract's amount {row['dAmount']}")


COPIED = {labels.CAR_NAME: f"{CATALOG[0]} {CATALOG[1]}", car_labels.CAR_CLASS: CATALOG[2][1], labels.CAR_YEAR: YEAR,
          labels.CAR_COLOUR: COLOURS[0], car_labels.CAR_KIND: "سواری", car_labels.CAR_FUEL: "بنزین",
          car_labels.PLATE: CODES[0][2], car_labels.CHASSIS: CODES[1][2], car_labels.ENGINE: CODES[2][2],
          car_labels.VIN: CODES[3][2]}


def archive_car(office, table):
    wait_for(lambda: table.row_count == 1, "the car in the list")
    office.driver.select_row(table, 0)
    office.command(labels.ARCHIVE)
    office.message(labels.NOTICE, labels.IS_ARCHIVED)
    wait_for(lambda: table.row_count == 0, "the archived car to leave the list")
    work.search_archive(office, labels.ARCHIVED)
    wait_for(lambda: table.row_count == 1, "the car among the archived ones")
    office.driver.select_row(table, 0)
    office.command(labels.ARCHIVE)
    office.message(labels.WARNING, car_labels.ARCHIVED_TWICE,
                   picture=("archived-twice", "A car is archived once only"))
    row = office.database.row("SELECT iArchiveUserID FROM AutomobilInformations")
    check(row["iArchiveUserID"] == office.database.value("SELECT iID FROM Users WHERE bAdmin=1"), "who archived the car")


def keep_used_brand(office):
    window = catalog.open_catalog(office)
    catalog.select_entry(office, window, car_labels.BRANDS, CATALOG[0])
    office.driver.press(car_labels.of(labels.DELETE, car_labels.BRANDS), window)
    office.message(labels.WARNING, car_labels.BRAND_USED,
                   picture=("brand-used", "A brand that a car of the register has is not deleted"))
    check(office.database.number(f"SELECT COUNT(*) FROM CarBrands WHERE sName='{CATALOG[0]}'") == 1, "the brand stays")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(car_labels.CATALOG)


def start_again(office):
    office.start()
    # Instead of waiting for the reminder's day, the day is moved.
    demands.let_reminder_fall_due(office)
    office.log_in()
    demands.deal_with_reminder(office, CUSTOMER)
    table = office.open_list(car_labels.CARS)
    wait_for(lambda: table.row_count == 0, "only cars that are not archived")
    work.search_archive(office, labels.ARCHIVED)
    window = cars.open_car(office, table, labels.SHOW, car_labels.CAR_SHOW)
    for label, _, text in CODES:
        shown = office.tree.find("text", label, window)
        check(same(shown.number, float(text)) if text.isdigit() else shown.text == text, f"the shown {label!r}: {shown.text!r}")
    office.pictures.take("shown-after-restart", "After a new start the archived car is shown with all that was entered")
    work.open_page(office, window, car_labels.SALE_PAGE)
    check(same(office.tree.find("text", car_labels.PROFIT, window).number, PROFIT), "the shown profit")
    check(cars.is_checked(office, window, car_labels.SOLD), "the car is shown as sold")
    office.pictures.take("sale-after-restart", "And its sale")
    office.driver.press(labels.UNARCHIVE, window)
    office.message(labels.NOTICE, car_labels.UNARCHIVED)
    office.tree.no_window(car_labels.CAR_SHOW)
    work.search_archive(office, labels.NOT_ARCHIVED)
    wait_for(lambda: table.row_count == 1, "the car among those on offer again")
    table = office.open_list(car_labels.DEMANDS)
    wait_for(lambda: [row[car_labels.COLUMN_CUSTOMER] for row in table.rows()] == [CUSTOMER], "the demand")
    office.pictures.take("demand-after-restart", "The demand is there as well")


if __name__ == "__main__":
    run(cars_and_demands, __doc__)
