# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The exact texts on the screen in the windows of cars, demands and their catalog."""

# The pages and their windows.
CARS = "گالري اتومبيل"
CAR_NEW = "گالري اتومبيل- جدید"
CAR_EDIT = "گالري اتومبيل- ویرایش"
CAR_SHOW = "گالري اتومبيل - نمایش"
DEMANDS = "تقاضا"
DEMAND_NEW = "تقاضا - جدید"
MATCHING_CARS = "خودروهای مناسب"
MATCHING_DEMANDS = "متقاضیان"
ARCHIVED_TWICE = "این قرارداد قبلا بایگانی شده است."
UNARCHIVED = "این نامه از حالت بایگانی خارج شد."

# The catalog.
CATALOG = "نام خودرو"
BRANDS, MODELS, CLASSES = "نوع خودرو", "مدل خودرو", "تیپ خودرو"
NAME = "نام :"
NO_CATALOG_NAME = "لطفا نوع خودرو را مشخص نماید."
IMPORT = "ورود فهرست آماده"
IMPORT_FILE = "فایل فهرست خودروها را انتخاب کنید"
IMPORT_ASK = "به فهرست اضافه شوند؟"
IMPORT_DONE = "اضافه شد."
BRAND_USED = "شما نمی توانید این نوع خودرو را حذف نمایید زیرا استفاده شده است در گالری اتومبیل."

# Input parameters.
PARAMETERS = "پارامترهاي ورودي"
COLOURS = "رنگ"
ACCESSORIES = "لوازم جانبی"
FEATURES = "امکانات"
COLUMN_NAME = "نام"
NAME_TAKEN = "این نام قبلا ثبت شده است."
TAKE = "انتخاب"

# Notary tariffs.
TARIFFS = "هزينه هاي تعرفه هاي محضر"
TARIFF_NEW = "هزينه هاي تعرفه هاي محضر - جدید"
TARIFF_COST = "هزينه :"
TARIFF_DESCRIPTION = "توضيحات :"

# A car's first page.
OWNER = " مالک"
PERSON_CODE = "کد شخص :"
BRAND = "نوع خودرو :"
MODEL = "مدل :"
CLASS = "تيپ :"
YEAR = "سال توليد :"
COLOUR = "رنگ :"
FUEL = "سوخت :"
USAGE = "کاربري :"
ACCESSORIES_HAD = "لوازم جانبي :"
ACCESSORIES_LACKING = "کسري لوازم :"
PICTURE = "عکس"
CHOOSE_PICTURE = "انتخاب تصویر"
NO_OWNER = "لطفا نام مالک را وارد نمائید."

# Its sale.
SALE_PAGE = "مشخصات فروش"
SOLD = "فروخته شده"
BUYER = " خريدار"
SOLD_AMOUNT = "مبلغ فروخته شده :"
PURCHASE = "مبلغ خريد از مالک :"
EXPENSES = "مخارج اتومبيل :"
NOTARY_COST = "هزينه محضر :"
NOTARY_REMAINING = "مانده محضر :"
PROFIT = "سود و زيان :"
SAME_PARTIES = "شخص مالک و خریدار یکی است لطفا اصلاح کنید."

# The list of cars.
COLUMN_OWNER = "نام مالک"
COLUMN_CAR_BUYER = "نام خریدار"
COLUMN_SOLD = "وضعیت فروش"
COLUMN_BRAND = "نوع خودرو"
COLUMN_MODEL = "مدل"
COLUMN_CLASS = "تیپ"
COLUMN_YEAR = "سال تولید"
COLUMN_COLOUR = "رنگ"
COLUMN_AMOUNT = "مبلغ"
COLUMN_FIT = "تناسب"

# A contract that was copied from a car.
TAKE_CAR = "گالري اتومبيل"
CAR_CLASS = "تيپ :"
CAR_KIND = "نوع اتومبيل :"
CAR_FUEL = "نوع سوخت :"
CHASSIS = "شماره شاسي :"
ENGINE = "شماره موتور :"
VIN = "VIN :"
PLATE = "شماره پلاک :"

# A demand.
WANTED = "خودرو درخواستي :"
YEAR_FROM = "سال توليد از :"
YEAR_UP_TO = "سال توليد تا :"
AMOUNT_FROM = "مبلغ از :"
AMOUNT_UP_TO = "تا مبلغ :"
FACILITIES = "امکانات :"
SPECIAL = "توضيحات ويژه :"
REMIND = "يادآوري شود"
COLUMN_CUSTOMER = "نام متقاضی"
NO_CUSTOMER = "لطفا نام متقاضی را وارد نمایید."

# Reminders.
REMINDER_NEW = "یادآوری - جدید"
DUE_REMINDERS = "یادآوری ها"
DUE_LIST = "زمان این یادآوری ها رسیده است :"
COLUMN_DESCRIPTION = "شرح"
CLOSE = "بستن"
BADGE = "یادآوری : 1"


def of(command, heading):
    """The catalog's three lists have the same buttons; their names say to which list they belong."""
    return f"{command} {heading}"


def more(label):
    """The button beside a field."""
    return f"{label} ..."


def person_button(of_whom):
    return f"{PERSON_CODE} ...{of_whom}"
