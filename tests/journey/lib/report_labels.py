# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The exact texts on the screen around the reports: services and invoices, the seasonal report, the chart."""

# Services.
SERVICES = "خدمات"
NEW_SERVICE = "جدید"
SERVICE_WINDOW = "خدمت جدید"
SERVICE_CODE = "کد :"
SERVICE_NAME = "نام :"
COLUMN_SERVICE_CODE = "کد خدمت"
COLUMN_SERVICE_NAME = "نام خدمت"

# Invoices.
INVOICES = "فاکتورها"
NEW_SALE, NEW_PURCHASE = "فروش جدید", "خرید جدید"
SALE_WINDOW, PURCHASE_WINDOW = "فاکتور فروش جدید", "فاکتور خرید جدید"
INVOICE_PERSON = "شخص :"
INVOICE_DATE = "تاریخ :"
INVOICE_DESCRIPTION = "شرح :"
INVOICE_LINES = "ردیف‌های فاکتور"
LINE_COLUMNS = ("خدمت", "شرح", "تعداد", "قیمت", "مبلغ")
INVOICE_SUM = "جمع ردیف‌ها :"
INVOICE_DISCOUNT = "تخفیف :"
INVOICE_TAX = "مالیات :"
INVOICE_DUTY = "عوارض :"
INVOICE_TOTAL = "قابل پرداخت :"
COLUMN_INVOICE_PERSON = "شخص"
COLUMN_INVOICE_NUMBER = "شماره"
COLUMN_INVOICE_TOTAL = "قابل پرداخت"

# The chart of accounts and documents by hand.
CHART = "سرفصل حساب‌ها"
NEW_GENERAL, NEW_BELOW = "حساب کل جدید", "زیرحساب جدید"
GENERAL_WINDOW, SUBSIDIARY_WINDOW = "حساب کل جدید", "حساب معین جدید"
ACCOUNT_CODE = "کد :"
ACCOUNT_NAME = "نام :"
DOCUMENTS = "اسناد حسابداری"
NEW_DOCUMENT = "سند جدید"
DOCUMENT_DATE = "تاریخ :"
DOCUMENT_DESCRIPTION = "شرح سند :"
DOCUMENT_ROWS = "ردیف‌های سند"

# The person editor.
PERSON_EDIT = "ویرایش شخص"
AREA_CODE = "پیش شماره :"
TELEPHONE = "تلفن :"
POSTAL_CODE = "کد پستی :"
ADDRESS = "آدرس :"
ECONOMIC_CODE = "کد اقتصادی :"
NATIONAL_CODE = "کد ملی :"
PARTY_KIND = "نوع مودی :"
TAX_ZONE = "حوزه مالیاتی :"
PROVINCE = "استان :"
CITY = "شهر :"

# The seasonal report.
SEASONAL = "گزارش فصلي"
SEASONS = ("بهار", "تابستان", "پاييز", "زمستان")
YEAR = "سال :"
MINIMUM = "مبالغ کمتر از "
SALES, PURCHASES = "فروش", "خريد"
# Once rows were gathered; before that the caption has the other yeh.
GATHER = "نمایش"
TOTALS = ("مبلغ :", "ارزش افزوده :", "تخفيف :", "جمع :")
COMPANY = "مشخصات شرکت/فروشگاه"
EXPORT = "تهيه فايل خروجي اداره ماليات"
PAYABLE = "مبلغ قابل پرداخت"
TITLES = ("ردیف", "شماره سریال", "نوع قرارداد ", "برگشت", "مبلغ", "ارزش افزوده", "نوع شخص", "کد پستی",
          "پیش شماره تلفن", "تلفن", "آدرس", "نام خریدار", "نام خانوادگی", "شماره اقتصادی", "کد ملی/ شناسه ملی",
          "نوع خریدار", "حوزه", "کد استان", "کد شهر", "معاملات کمتر از 5% مبلغ حد نصاب", "مبلغ تخفیف", "جمع",
          "کد قرارداد", "تاریخ ثبت قرارداد", "سایر عوارض", "نحوه دریافت وجه", "سرفصل حساب", "شماره سند", "تاریخ سند",
          "نوع کالا")
ADDRESSES_TOO_LONG = "{} آدرس دارای طول بیش از 80 کاراکتر می باشند، لطفا اصلاح بفرمایید."
NO_COMPANY = "ابتدا مشخصات شرکت یا فروشگاه خود را از طریق دکمه مشخصات شرکت/فروشگاه پر نمایید."
CHOOSE_FOLDER = ": پوشه مورد نظر خود را انتخاب نمایید"
EXPORTED = "انجام شد."
COMPANY_WINDOW = "مشخصات نمایشگاه"
COMPANY_NAME, COMPANY_NAME_2 = "نام :", "دنباله نام :"
COMPANY_NATIONAL_CODE = "کد ملی / شناسه ملی :"
COMPANY_CITY = "شهر :"

# The payable amount.
PAYABLE_WINDOW = "پرداختي"
PAYABLE_SALES, PAYABLE_PURCHASES, PAYABLE_RESULT = "جمع فروش :", "جمع خريد :", "نتيجه :"

# The comprehensive report.
COMPREHENSIVE = "گزارش جامع"
INCOME, INCOME_TOTAL = "درآمد ها", "جمع درآمدها"
EXPENSES, EXPENSES_TOTAL = "هزینه ها", "جمع هزینه ها"
DIFFERENCE = "مابه التفاوت درآمدها با هزینه ها"
COLUMN_GROUP, COLUMN_ACCOUNT, COLUMN_AMOUNT, COLUMN_NATURE = "گروه", "نام حساب", "مبلغ", "تشخیص"
FROM_DATE, TO_DATE = "تاريخ :", "تاريخ تا :"
ACCOUNT_SHEET = "گردش حساب"
COLUMN_DEBIT, COLUMN_CREDIT = "بدهکار", "بستانکار"
COLUMN_SHEET_DOCUMENT = "شماره سند"
DOCUMENT_WINDOW = "سند حسابداری شماره"
