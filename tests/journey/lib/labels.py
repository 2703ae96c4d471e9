# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What stands on the screen, to the letter: lists and contract have the Arabic yeh and kaf in their captions."""

OK = "تاييد"
CANCEL = "انصراف"
BACK = "بازگشت"
CLOSE_MESSAGE = "باشه"
YES = "بله"
NO = "خیر"
WARNING = "هشدار"
NOTICE = "پیام"
QUESTION = "پرسش"

# The host.
FIRST_START = "راه‌اندازی اولیه"
ADMINISTRATOR = "نام مدیر :"
USER = "نام کاربری :"
PASSWORD = "کلمه عبور :"
REPEATED = "تکرار کلمه عبور :"
COMPANY = "نام نمایشگاه :"
COMPANY_TELEPHONE = "تلفن :"
COMPANY_CITY = "شهر :"
COMPANY_ADDRESS = "نشانی :"
BEGIN = "شروع به کار"
LOGIN = "ورود به برنامه"
ENTER = "ورود"
AUTO_MENU = "گالری اتومبیل"
CONTRACTS = "قرارداد"
BOOK_MENU = "اشخاص و اسناد"
PERSONS = "اشخاص"
MANAGEMENT_MENU = "مدیریت"
PROGRAM_MENU = "برنامه"
OTHER_USER = "ورود با کاربر دیگر"
LEAVE = "خروج"

# Lists.
NEW = "جديد"
EDIT = "ويرايش"
DELETE = "حذف"
SHOW = "نمايش"
ARCHIVE = "بايگاني شد"
SETTINGS = "تنظيمات"
SEARCH = "جستجو"
ARCHIVE_STATE = "وضعيت بايگاني :"
ARCHIVE_ALL, NOT_ARCHIVED, ARCHIVED, ARCHIVED_BY_OTHERS = "همه", "بایگانی نشده", "بایگانی شده", "بایگانی شده دیگران"
SHOW_INACTIVE = "نمايش غير فعال ها"
COLUMN_SELLER = "فروشنده"
COLUMN_BUYER = "خریدار"
COLUMN_DOCUMENT = "شماره سند"
COLUMN_EXPLANATION = "شرح قرارداد"
COLUMN_ARCHIVED = "وضعیت بایگانی"

# Persons.
PICK_PERSON = "انتخاب شخص"
NEW_PERSON = "شخص جدید"
SEARCH_PERSON = "جستجو :"
FIRST_NAME = "نام :"
FAMILY_NAME = "نام خانوادگی :"
MOBILE = "موبایل :"
DISCOUNT_PERCENT = "درصد تخفیف :"
COLUMN_PERSON = "نام و نام خانوادگی"

# Contract settings.
TAX = "ماليات :"
DUTY = "عوارض :"
CEILING = "تا :"
RATE = "%"


def tier(number):
    """What tells the fields of the three tiers apart."""
    return f"پله {number} کمیسیون"


# The contract editor.
EDITOR_NEW = "قرارداد مبایعه نامه- جدید"
EDITOR_EDIT = "قرارداد مبایعه نامه- ویرایش"
EDITOR_SHOW = "قرارداد مبایعه نامه - نمایش"
CONTRACT_CODE = "کد قرارداد :"
AMOUNT = "مبلغ قرارداد :"
COMMISSION = "حق کميسيون :"
PERSON = "نام و نام خانوادگي :"
DISCOUNT = "تخفيف :"
PAYS = "پرداختي :"
EXPLANATION = "شرح قرارداد :"
ACTIVE = "فعال"
UNARCHIVE = "برگشت از بايگاني"
SIDES = (" طرف اول", " طرف دوم")
MATTER_PAGE = "مشخصات فروش"
CAR_NAME = "نام اتومبيل :"
CAR_YEAR = "سال توليد :"
CAR_COLOUR = "رنگ :"
CAR_PLATE = "شماره پلاک :"

# Messages.
SAME_PERSON = "دو طرف معامله نمی تواند یک شخص باشد."
NO_CAR_NAME = "لطفا نام اتومبیل را مشخص کنید."
NO_AMOUNT = "لطفا مبلغ قرارداد را وارد نمایید."
IS_ARCHIVED = "بایگانی شد."
IS_ARCHIVED_ALREADY = "این تقاضا قبلا بایگانی شده است."
IS_UNARCHIVED = "این قرارداد از حالت بایگانی خارج شد."
ASK_DELETE = "آیا از حذف این رکورد اطمینان دارید؟"
DOCUMENT_POSTED = "سند حسابداری شماره"
NOT_ALLOWED = "شما اجازه"

# Users and rights.
USERS = "کاربران و دسترسی‌ها"
NEW_USER = "جدید"
USER_WINDOW = "کاربر جدید"
COLUMN_USER = "نام کاربری"
RIGHTS = "دسترسی‌ها"
RIGHTS_GRID = "جدول دسترسی‌ها"
RIGHT_ACCESS = "دسترسی"
RIGHT_READ = "مشاهده"
RIGHT_COLUMNS = {RIGHT_ACCESS: 0, RIGHT_READ: 1}
YES_IN_LIST = "بلی"
