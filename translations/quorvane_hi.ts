<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hi_IN" sourcelanguage="en">
<context>
    <name>ActionList</name>
    <message>
        <source>Invalid File.</source>
        <translation>फ़ाइल अमान्य है।</translation>
    </message>
    <message>
        <source>there is no code</source>
        <translation>कोड नहीं है</translation>
    </message>
    <message>
        <source>The file holds no corporate action.</source>
        <translation>फ़ाइल में कोई कॉर्पोरेट कार्रवाई नहीं है।</translation>
    </message>
    <message>
        <source>%1 is no kind of corporate action</source>
        <translation>%1 कॉर्पोरेट कार्रवाई का कोई प्रकार नहीं है</translation>
    </message>
    <message>
        <source>%1 is no date</source>
        <translation>%1 कोई तारीख़ नहीं है</translation>
    </message>
    <message>
        <source>%1 is no number that can stand there</source>
        <translation>%1 ऐसी संख्या नहीं है जो यहाँ हो सके</translation>
    </message>
    <message>
        <source>Line %1: %2.</source>
        <translation>पंक्ति %1: %2।</translation>
    </message>
    <message>
        <source>... and %1 more.</source>
        <translation>... और %1 अन्य।</translation>
    </message>
    <message>
        <source>The file holds more than can be read.</source>
        <translation>फ़ाइल पढ़ने की सीमा से बड़ी है।</translation>
    </message>
    <message>
        <source>Expected are the columns scrip_code, kind, ex_date and, as far as there are any, record_date, new, old, other_scrip_code, price, cost_percent, note, allotment_date; or those of an exchange&apos;s list of corporate actions: SYMBOL, COMPANY NAME, SERIES, PURPOSE, EX-DATE; SYMBOL, SERIES, SUBJECT, EXDATE; SYMBOL, SECURITY, SERIES, PURPOSE, EX_DT; Security Code, Company Name, Ex Date, Purpose; scrip_code, Purpose, Ex_date.</source>
        <translation>अपेक्षित कॉलम हैं scrip_code, kind, ex_date और, जो हों, record_date, new, old, other_scrip_code, price, cost_percent, note, allotment_date; या किसी एक्सचेंज की कॉर्पोरेट कार्रवाइयों की सूची के: SYMBOL, COMPANY NAME, SERIES, PURPOSE, EX-DATE; SYMBOL, SERIES, SUBJECT, EXDATE; SYMBOL, SECURITY, SERIES, PURPOSE, EX_DT; Security Code, Company Name, Ex Date, Purpose; scrip_code, Purpose, Ex_date।</translation>
    </message>
    <message>
        <source>New</source>
        <translation>नया</translation>
    </message>
    <message>
        <source>Recorded Already</source>
        <translation>पहले से दर्ज</translation>
    </message>
    <message>
        <source>Doubled</source>
        <translation>दोहराया गया</translation>
    </message>
    <message>
        <source>Script not Here</source>
        <translation>शेयर यहाँ नहीं है</translation>
    </message>
    <message>
        <source>Not Understood</source>
        <translation>समझा नहीं गया</translation>
    </message>
    <message>
        <source>ex-date</source>
        <translation>एक्स-तारीख़</translation>
    </message>
    <message>
        <source>ratio</source>
        <translation>अनुपात</translation>
    </message>
    <message>
        <source>other script</source>
        <translation>दूसरा शेयर</translation>
    </message>
    <message>
        <source>price</source>
        <translation>मूल्य</translation>
    </message>
    <message>
        <source>amount a share</source>
        <translation>प्रति शेयर राशि</translation>
    </message>
    <message>
        <source>percent of cost</source>
        <translation>लागत का प्रतिशत</translation>
    </message>
</context>
<context>
    <name>Actions</name>
    <message>
        <source>%1: Bill %2</source>
        <translation>%1: बिल %2</translation>
    </message>
    <message>
        <source>%1: Transfer</source>
        <translation>%1: ट्रांसफ़र</translation>
    </message>
    <message>
        <source>The Holdings can&apos;t Follow: these Sales and Transfers from the Ex-Date on would Lack Shares. Delete them, Apply again, and Enter them anew.</source>
        <translation>होल्डिंग नहीं बदली जा सकती: एक्स-डेट से आगे की इन बिक्रियों और ट्रांसफ़रों के लिए शेयर कम पड़ेंगे। उन्हें हटाएँ, दोबारा लागू करें और उन्हें फिर से दर्ज करें।</translation>
    </message>
    <message>
        <source>%1 of %2, %3 Shares</source>
        <translation>%1, तारीख़ %2, %3 शेयर</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>और %1 अन्य</translation>
    </message>
    <message>
        <source>Enter Ex-Date.</source>
        <translation>एक्स-डेट दर्ज करें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Enter a Ratio Above Zero.</source>
        <translation>शून्य से अधिक अनुपात दर्ज करें।</translation>
    </message>
    <message>
        <source>A Split Gives More Shares than were Held, such as 10 for 1.</source>
        <translation>स्प्लिट में पहले से अधिक शेयर मिलते हैं, जैसे 1 के बदले 10।</translation>
    </message>
    <message>
        <source>A Consolidation Gives Fewer Shares than were Held, such as 1 for 10.</source>
        <translation>कंसोलिडेशन में पहले से कम शेयर मिलते हैं, जैसे 10 के बदले 1।</translation>
    </message>
    <message>
        <source>Select the Script that the Shares Go to.</source>
        <translation>जिस कंपनी में शेयर जाते हैं वह चुनें।</translation>
    </message>
    <message>
        <source>The Two Scripts must Differ.</source>
        <translation>दोनों शेयर अलग होने चाहिए।</translation>
    </message>
    <message>
        <source>Enter a Price Above Zero.</source>
        <translation>शून्य से अधिक मूल्य दर्ज करें।</translation>
    </message>
    <message>
        <source>Enter a Percent of Cost between 0 and 100.</source>
        <translation>लागत का प्रतिशत 0 और 100 के बीच दर्ज करें।</translation>
    </message>
    <message>
        <source>Select Script.</source>
        <translation>शेयर चुनें।</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>स्प्लिट</translation>
    </message>
    <message>
        <source>Consolidation</source>
        <translation>कंसोलिडेशन</translation>
    </message>
    <message>
        <source>Bonus</source>
        <translation>बोनस</translation>
    </message>
    <message>
        <source>Rights</source>
        <translation>राइट्स</translation>
    </message>
    <message>
        <source>Merger</source>
        <translation>विलय</translation>
    </message>
    <message>
        <source>Demerger</source>
        <translation>डीमर्जर</translation>
    </message>
    <message>
        <source>Buy-Back</source>
        <translation>बायबैक</translation>
    </message>
    <message>
        <source>Change of Name</source>
        <translation>नाम परिवर्तन</translation>
    </message>
    <message>
        <source>Dividend</source>
        <translation>लाभांश</translation>
    </message>
    <message>
        <source>This Corporate Action was Deleted in the Meantime.</source>
        <translation>यह कॉरपोरेट एक्शन इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>This Corporate Action is Recorded Already.</source>
        <translation>यह कॉरपोरेट एक्शन पहले से दर्ज है।</translation>
    </message>
    <message>
        <source>Take the Corporate Action back before it is Changed.</source>
        <translation>बदलने से पहले कॉरपोरेट एक्शन वापस लें।</translation>
    </message>
    <message>
        <source>Take back the Later Action %1 of %2 First.</source>
        <translation>पहले %2 का बाद वाला एक्शन %1 वापस लें।</translation>
    </message>
    <message>
        <source>This Corporate Action is Applied Already.</source>
        <translation>यह कॉरपोरेट एक्शन पहले ही लागू है।</translation>
    </message>
    <message>
        <source>The Ex-Date is still to Come.</source>
        <translation>एक्स-डेट अभी आनी है।</translation>
    </message>
    <message>
        <source>Take the Corporate Action back before it is Deleted.</source>
        <translation>हटाने से पहले कॉरपोरेट एक्शन वापस लें।</translation>
    </message>
    <message>
        <source>%1 of %2, Ex-Date %3: the books were changed since it was applied. Take it back and apply it again.</source>
        <translation>%2 का %1, एक्स-तारीख़ %3: लागू करने के बाद बहियाँ बदली गईं। इसे वापस लें और फिर लागू करें।</translation>
    </message>
    <message>
        <source>Rs %1</source>
        <translation>रु. %1</translation>
    </message>
</context>
<context>
    <name>Backup</name>
    <message>
        <source>The folder&apos;s name is too long.</source>
        <translation>फ़ोल्डर का नाम बहुत लंबा है।</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Demat accounts</source>
        <translation>डीमैट खाते</translation>
    </message>
    <message>
        <source>Brokers</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>Scrips</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Bills</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>Bill lines</source>
        <translation>बिल की पंक्तियाँ</translation>
    </message>
    <message>
        <source>Opening stock</source>
        <translation>प्रारंभिक स्टॉक</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>हस्तांतरण</translation>
    </message>
    <message>
        <source>Lots held</source>
        <translation>होल्डिंग के लॉट</translation>
    </message>
    <message>
        <source>Payments</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Receipts</source>
        <translation>प्राप्तियाँ</translation>
    </message>
    <message>
        <source>Market rates</source>
        <translation>बाज़ार भाव</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>उपयोगकर्ता</translation>
    </message>
    <message>
        <source>Fetching the documents</source>
        <translation>दस्तावेज़ लाए जा रहे हैं</translation>
    </message>
    <message>
        <source>The rows of the table %1 cannot be read.</source>
        <translation>तालिका %1 की पंक्तियाँ पढ़ी नहीं जा सकतीं।</translation>
    </message>
    <message>
        <source>%1 is a link. A restore writes through no link: put what it leads to in its place first.</source>
        <translation>%1 एक लिंक है। पुनर्स्थापना किसी लिंक से होकर नहीं लिखती: पहले लिंक की जगह वही रखें जिस पर वह ले जाता है।</translation>
    </message>
    <message>
        <source>Choose a Folder for the BackUp.</source>
        <translation>बैकअप के लिए फ़ोल्डर चुनें।</translation>
    </message>
    <message>
        <source>A backup cannot lie inside %1, which is backed up or in use itself.</source>
        <translation>बैकअप %1 के भीतर नहीं रखा जा सकता, क्योंकि उसी का बैकअप लिया जाता है या वह उपयोग में है।</translation>
    </message>
    <message>
        <source>Backing up the records</source>
        <translation>रिकॉर्ड का बैकअप लिया जा रहा है</translation>
    </message>
    <message>
        <source>Backing up the documents</source>
        <translation>दस्तावेज़ों का बैकअप लिया जा रहा है</translation>
    </message>
    <message>
        <source>Checking the backup</source>
        <translation>बैकअप जाँचा जा रहा है</translation>
    </message>
    <message>
        <source>the file %1 does not agree with its checksum</source>
        <translation>फ़ाइल %1 अपने चेकसम से मेल नहीं खाती</translation>
    </message>
    <message>
        <source>the manifest names the file &quot;%1&quot;</source>
        <translation>बैकअप की सूची में फ़ाइल &quot;%1&quot; का नाम है</translation>
    </message>
    <message>
        <source>the manifest names %1 twice</source>
        <translation>बैकअप की सूची में %1 दो बार है</translation>
    </message>
    <message>
        <source>the manifest names no file for the table %1</source>
        <translation>बैकअप की सूची में तालिका %1 की कोई फ़ाइल नहीं है</translation>
    </message>
    <message>
        <source>the manifest names no table</source>
        <translation>बैकअप की सूची में कोई तालिका नहीं है</translation>
    </message>
    <message>
        <source>The backup %1 was not finished.</source>
        <translation>बैकअप %1 पूरा नहीं हुआ था।</translation>
    </message>
    <message>
        <source>%1 is no backup of Quorvane: it has no manifest.</source>
        <translation>%1 Quorvane का बैकअप नहीं है: उसमें बैकअप की सूची नहीं है।</translation>
    </message>
    <message>
        <source>The backup %1 is damaged: %2.</source>
        <translation>बैकअप %1 ख़राब है: %2।</translation>
    </message>
    <message>
        <source>the manifest does not agree with its checksum</source>
        <translation>बैकअप की सूची अपने चेकसम से मेल नहीं खाती</translation>
    </message>
    <message>
        <source>The backup %1 was made by a newer release (format %2). This release reads format %3.</source>
        <translation>बैकअप %1 नए संस्करण से बना है (प्रारूप %2)। यह संस्करण प्रारूप %3 पढ़ता है।</translation>
    </message>
    <message>
        <source>the file %1 is missing</source>
        <translation>फ़ाइल %1 नहीं मिली</translation>
    </message>
    <message>
        <source>the file %1 has %2 bytes instead of %3</source>
        <translation>फ़ाइल %1 में %3 के बजाय %2 बाइट हैं</translation>
    </message>
    <message>
        <source>The backup %1 holds %2, which this release does not know.</source>
        <translation>बैकअप %1 में %2 है, जिसे यह संस्करण नहीं जानता।</translation>
    </message>
    <message>
        <source>Restoring the records</source>
        <translation>रिकॉर्ड पुनर्स्थापित हो रहे हैं</translation>
    </message>
    <message>
        <source>The backup was restored, but the table %1 has another number of rows now. What was replaced lies in %2.</source>
        <translation>बैकअप पुनर्स्थापित हुआ, पर तालिका %1 में अब पंक्तियों की संख्या अलग है। जो पहले था वह %2 में है।</translation>
    </message>
    <message>
        <source>Another program is restoring a backup at this moment.</source>
        <translation>इस समय कोई दूसरा प्रोग्राम बैकअप पुनर्स्थापित कर रहा है।</translation>
    </message>
    <message>
        <source>Scanned documents</source>
        <translation>स्कैन किए गए दस्तावेज़</translation>
    </message>
</context>
<context>
    <name>Bills</name>
    <message>
        <source>Total Payable</source>
        <translation>कुल देय</translation>
    </message>
    <message>
        <source>Total Receivable</source>
        <translation>कुल प्राप्य</translation>
    </message>
    <message>
        <source>Enter Date.</source>
        <translation>तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Select Stock Exchange.</source>
        <translation>स्टॉक एक्सचेंज चुनें।</translation>
    </message>
    <message>
        <source>Enter Bill No.</source>
        <translation>बिल सं. भरें।</translation>
    </message>
    <message>
        <source>Enter Broker Name.</source>
        <translation>ब्रोकर का नाम भरें।</translation>
    </message>
    <message>
        <source>The Date is not in the Financial Year %1.</source>
        <translation>तारीख़ वित्तीय वर्ष %1 में नहीं है।</translation>
    </message>
    <message>
        <source>Enter Sale/Purchase.</source>
        <translation>बिक्री/ख़रीद भरें।</translation>
    </message>
    <message>
        <source>Enter Script Name.</source>
        <translation>शेयर का नाम भरें।</translation>
    </message>
    <message>
        <source>Enter Quantity Greater than Zero.</source>
        <translation>शून्य से अधिक मात्रा भरें।</translation>
    </message>
    <message>
        <source>Select the Lot to be Sold from the Balance.</source>
        <translation>शेष में से बेचने का लॉट चुनें।</translation>
    </message>
    <message>
        <source>You can&apos;t insert future Date</source>
        <translation>भविष्य की तारीख़ नहीं भर सकते</translation>
    </message>
    <message>
        <source>You Can&apos;t Sale Scripts More than Balance.

Maximum Allowed Value is: %1</source>
        <translation>शेष से अधिक शेयर नहीं बेच सकते।

अधिकतम मात्रा: %1</translation>
    </message>
    <message>
        <source>The Bill has Sales from the Lots of its Demat A/c.</source>
        <translation>इस बिल में इसके डीमैट खाते के लॉट से बिक्री है।</translation>
    </message>
    <message>
        <source>Add L&amp;ine</source>
        <translation>पंक्ति जोड़ें (&amp;I)</translation>
    </message>
    <message>
        <source>Modi&amp;fy Line</source>
        <translation>पंक्ति बदलें (&amp;F)</translation>
    </message>
    <message>
        <source>Updat&amp;e Line</source>
        <translation>पंक्ति सहेजें (&amp;E)</translation>
    </message>
    <message>
        <source>Delete Line</source>
        <translation>पंक्ति हटाएँ</translation>
    </message>
    <message>
        <source>Del in the list of lines</source>
        <translation>पंक्तियों की सूची में Del</translation>
    </message>
    <message>
        <source>Cancel Line</source>
        <translation>पंक्ति रद्द करें</translation>
    </message>
    <message>
        <source>Bill Total</source>
        <translation>बिल का योग</translation>
    </message>
    <message>
        <source>Other Charges</source>
        <translation>अन्य शुल्क</translation>
    </message>
    <message>
        <source>Trans. Charges</source>
        <translation>लेनदेन शुल्क</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>पंक्ति %1: %2</translation>
    </message>
    <message>
        <source>%1 to pay</source>
        <translation>%1 देय</translation>
    </message>
    <message>
        <source>%1 to receive</source>
        <translation>%1 प्राप्य</translation>
    </message>
    <message>
        <source>Net as on the note</source>
        <translation>नोट के अनुसार शुद्ध राशि</translation>
    </message>
    <message>
        <source>Delivery Based</source>
        <translation>डिलीवरी आधारित</translation>
    </message>
    <message>
        <source>Non Delivery Based</source>
        <translation>बिना डिलीवरी</translation>
    </message>
</context>
<context>
    <name>Booklet</name>
    <message>
        <source>Value and Largest Holdings</source>
        <translation>मूल्य और सबसे बड़ी होल्डिंग</translation>
    </message>
    <message>
        <source>Holdings by Client</source>
        <translation>ग्राहक के अनुसार होल्डिंग</translation>
    </message>
    <message>
        <source>Gains by Kind</source>
        <translation>प्रकार के अनुसार लाभ</translation>
    </message>
    <message>
        <source>Tax Year</source>
        <translation>कर वर्ष</translation>
    </message>
    <message>
        <source>Dividends</source>
        <translation>लाभांश</translation>
    </message>
    <message>
        <source>Returns</source>
        <translation>प्रतिफल</translation>
    </message>
    <message>
        <source>Value by Month</source>
        <translation>माह के अनुसार मूल्य</translation>
    </message>
    <message>
        <source>Select a part of the booklet!</source>
        <translation>पुस्तिका का कोई भाग चुनें!</translation>
    </message>
    <message>
        <source>The year %1 has not begun.</source>
        <translation>वर्ष %1 अभी शुरू नहीं हुआ है।</translation>
    </message>
</context>
<context>
    <name>BrokerAccount</name>
    <message>
        <source>Reading the broker accounts</source>
        <translation>ब्रोकर खाते पढ़े जा रहे हैं</translation>
    </message>
</context>
<context>
    <name>BrokerLedger</name>
    <message>
        <source>Payment</source>
        <translation>Payment</translation>
    </message>
    <message>
        <source>Dr. By Broker</source>
        <translation>Dr. By Broker</translation>
    </message>
    <message>
        <source>Receiving</source>
        <translation>Receiving</translation>
    </message>
    <message>
        <source>Cr. By Broker</source>
        <translation>Cr. By Broker</translation>
    </message>
    <message>
        <source>Reading the broker ledger</source>
        <translation>Reading the broker ledger</translation>
    </message>
</context>
<context>
    <name>BrokerMoney</name>
    <message>
        <source>Enter Broker Name.</source>
        <translation>ब्रोकर का नाम भरें।</translation>
    </message>
    <message>
        <source>Enter Opening Balance Greater than Zero.</source>
        <translation>शून्य से अधिक प्रारंभिक शेष भरें।</translation>
    </message>
    <message>
        <source>Select Dr/Cr.</source>
        <translation>नामे/जमा चुनें।</translation>
    </message>
    <message>
        <source>Record Already Exists!</source>
        <translation>रिकॉर्ड पहले से है!</translation>
    </message>
    <message>
        <source>Enter Payment Date.</source>
        <translation>भुगतान की तारीख़ भरें।</translation>
    </message>
    <message>
        <source>The Payment Date is not in the Financial Year %1.</source>
        <translation>भुगतान की तारीख़ वित्तीय वर्ष %1 में नहीं है।</translation>
    </message>
    <message>
        <source>Payment To Broker</source>
        <translation>ब्रोकर को भुगतान</translation>
    </message>
    <message>
        <source>Received From Broker</source>
        <translation>ब्रोकर से प्राप्ति</translation>
    </message>
    <message>
        <source>Select Transaction Mode.</source>
        <translation>लेनदेन का तरीक़ा चुनें।</translation>
    </message>
    <message>
        <source>Enter Amount Greater than Zero.</source>
        <translation>शून्य से अधिक राशि भरें।</translation>
    </message>
    <message>
        <source>Select Payment Mode.</source>
        <translation>भुगतान का तरीक़ा चुनें।</translation>
    </message>
    <message>
        <source>Cheque No.</source>
        <translation>चेक सं.</translation>
    </message>
    <message>
        <source>Drawn On</source>
        <translation>अदाकर्ता बैंक</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Broker balances</source>
        <translation>ब्रोकर शेष</translation>
    </message>
    <message>
        <source>Dr</source>
        <translation>नामे</translation>
    </message>
    <message>
        <source>Cr</source>
        <translation>जमा</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>नक़द</translation>
    </message>
    <message>
        <source>Cheque</source>
        <translation>चेक</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Cr. By Broker</source>
        <translation>ब्रोकर द्वारा जमा</translation>
    </message>
    <message>
        <source>Receving</source>
        <translation>प्राप्ति</translation>
    </message>
    <message>
        <source>Dr. By Broker</source>
        <translation>ब्रोकर द्वारा नामे</translation>
    </message>
</context>
<context>
    <name>Calculator</name>
    <message>
        <source>Division by Zero</source>
        <translation>शून्य से भाग</translation>
    </message>
    <message>
        <source>The Number is too Large</source>
        <translation>संख्या बहुत बड़ी है</translation>
    </message>
</context>
<context>
    <name>Changes</name>
    <message>
        <source>Entry %1 of the log does not belong to it.</source>
        <translation>लॉग की प्रविष्टि %1 उसकी नहीं है।</translation>
    </message>
    <message>
        <source>Entry %1 of the log was edited: %2, %3 by %4.</source>
        <translation>लॉग की प्रविष्टि %1 बदली गई: %2, %3, %4 द्वारा।</translation>
    </message>
    <message>
        <source>The log does not end where it was ended, at entry %1.</source>
        <translation>लॉग वहाँ समाप्त नहीं होता जहाँ उसे समाप्त किया गया था: प्रविष्टि %1।</translation>
    </message>
    <message>
        <source>Entry %1 of the log was removed.</source>
        <translation>लॉग की प्रविष्टि %1 हटाई गई।</translation>
    </message>
    <message>
        <source>Entries %1 to %2 of the log were removed.</source>
        <translation>लॉग की प्रविष्टियाँ %1 से %2 हटाई गईं।</translation>
    </message>
    <message>
        <source>The log has no entry before that day.</source>
        <translation>उस दिन से पहले लॉग में कोई प्रविष्टि नहीं है।</translation>
    </message>
    <message>
        <source>The end of the log (table ChangeHead) was removed.</source>
        <translation>लॉग का अंत (तालिका ChangeHead) हटाया गया।</translation>
    </message>
    <message>
        <source>Entries up to %1</source>
        <translation>%1 तक की प्रविष्टियाँ</translation>
    </message>
    <message>
        <source>Open at %1 on %2 since %3</source>
        <translation>%1 के पास %2 पर %3 से खुला है</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: Shares of %1 that it Concerns were Sold or Transferred Since.</source>
        <translation>वापस नहीं लिया जा सकता: इससे जुड़े %1 के शेयर बाद में बेचे या स्थानांतरित किए गए।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: %1 records of &quot;%2&quot; name it.</source>
        <translation>वापस नहीं लिया जा सकता: &quot;%2&quot; के %1 रिकॉर्ड इसका नाम लेते हैं।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: the %1 that it names was Deleted.</source>
        <translation>वापस नहीं लिया जा सकता: जिस %1 का यह नाम लेता है वह हटाया गया।</translation>
    </message>
    <message>
        <source>The last change was an import, which can&apos;t be Taken Back as a whole: %1. Restore the BackUp made before it, or Delete what it brought.</source>
        <translation>पिछला बदलाव एक आयात था, जिसे पूरा वापस नहीं लिया जा सकता: %1। उससे पहले का बैकअप पुनर्स्थापित करें, या जो उसने लाया उसे हटाएँ।</translation>
    </message>
    <message>
        <source>The last change was computed from other records and can&apos;t be Taken Back: %1. Correct those records and run it again.</source>
        <translation>पिछला बदलाव अन्य रिकॉर्ड से गणना किया गया था और वापस नहीं लिया जा सकता: %1। वे रिकॉर्ड सुधारें और फिर चलाएँ।</translation>
    </message>
    <message>
        <source>The last change can&apos;t be Taken Back: %1.</source>
        <translation>पिछला बदलाव वापस नहीं लिया जा सकता: %1।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: %1 Changed it Again on %2.</source>
        <translation>वापस नहीं लिया जा सकता: %1 ने इसे %2 को फिर बदला।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: the Records were Changed Since.</source>
        <translation>वापस नहीं लिया जा सकता: रिकॉर्ड बाद में बदले गए।</translation>
    </message>
    <message>
        <source>It was Taken Back Already.</source>
        <translation>यह पहले ही वापस लिया जा चुका है।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: &quot;%1&quot; is used by another record now.</source>
        <translation>वापस नहीं लिया जा सकता: &quot;%1&quot; अब दूसरे रिकॉर्ड में है।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: the Books were Changed Since. Apply the Corporate Action Anew.</source>
        <translation>वापस नहीं लिया जा सकता: बहियाँ बाद में बदली गईं। कॉर्पोरेट कार्रवाई नए सिरे से लागू करें।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: Shares that it Concerns were Sold or Transferred Since.</source>
        <translation>वापस नहीं लिया जा सकता: इससे जुड़े शेयर बाद में बेचे या स्थानांतरित किए गए।</translation>
    </message>
    <message>
        <source>There is no Change of Yours to Take Back.</source>
        <translation>आपका कोई बदलाव वापस लेने को नहीं है।</translation>
    </message>
    <message>
        <source>Take this Change Back?</source>
        <translation>यह बदलाव वापस लें?</translation>
    </message>
    <message>
        <source>%1, %2: %3 | %4</source>
        <translation>%1, %2: %3 | %4</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>और %1 अन्य</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>जोड़ा</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>बदला हुआ</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>हटाया</translation>
    </message>
    <message>
        <source>Applied</source>
        <translation>लागू</translation>
    </message>
    <message>
        <source>Taken back</source>
        <translation>वापस लिया</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>आयात किया</translation>
    </message>
    <message>
        <source>Carried forward</source>
        <translation>आगे ले जाया</translation>
    </message>
    <message>
        <source>Rebuilt</source>
        <translation>पुनर्गणना की</translation>
    </message>
    <message>
        <source>Rates saved</source>
        <translation>भाव सहेजे</translation>
    </message>
    <message>
        <source>Password changed</source>
        <translation>पासवर्ड बदला</translation>
    </message>
    <message>
        <source>BackUp restored</source>
        <translation>बैकअप पुनर्स्थापित</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>मरम्मत की</translation>
    </message>
    <message>
        <source>Log cleared</source>
        <translation>लॉग साफ़ किया</translation>
    </message>
    <message>
        <source>Rights changed</source>
        <translation>अधिकार बदले</translation>
    </message>
    <message>
        <source>User</source>
        <translation>उपयोगकर्ता</translation>
    </message>
    <message>
        <source>User&apos;s Rights</source>
        <translation>उपयोगकर्ता के अधिकार</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Demat A/c</source>
        <translation>डीमैट खाता</translation>
    </message>
    <message>
        <source>Removed Demat A/c</source>
        <translation>हटाया गया डीमैट खाता</translation>
    </message>
    <message>
        <source>Participant</source>
        <translation>प्रतिभागी</translation>
    </message>
    <message>
        <source>DP Id</source>
        <translation>डीपी आईडी</translation>
    </message>
    <message>
        <source>Broker</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>Script</source>
        <translation>स्क्रिप</translation>
    </message>
    <message>
        <source>ISIN</source>
        <translation>ISIN</translation>
    </message>
    <message>
        <source>Script Type</source>
        <translation>शेयर प्रकार</translation>
    </message>
    <message>
        <source>Script Class</source>
        <translation>शेयर श्रेणी</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>S.T.T. Percent</source>
        <translation>एस.टी.टी. प्रतिशत</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>प्रतिशत</translation>
    </message>
    <message>
        <source>Corporate Action</source>
        <translation>कॉरपोरेट एक्शन</translation>
    </message>
    <message>
        <source>Shares of the Action</source>
        <translation>कार्रवाई के शेयर</translation>
    </message>
    <message>
        <source>Bill</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>Bill Line</source>
        <translation>बिल पंक्ति</translation>
    </message>
    <message>
        <source>Opening Stock</source>
        <translation>प्रारंभिक स्टॉक</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>स्थानांतरण</translation>
    </message>
    <message>
        <source>Broker&apos;s Opening Balance</source>
        <translation>ब्रोकर का प्रारंभिक शेष</translation>
    </message>
    <message>
        <source>Payment to Broker</source>
        <translation>ब्रोकर को भुगतान</translation>
    </message>
    <message>
        <source>Receipt from Broker</source>
        <translation>ब्रोकर से प्राप्ति</translation>
    </message>
    <message>
        <source>Dividend</source>
        <translation>लाभांश</translation>
    </message>
    <message>
        <source>Trade of a Broker&apos;s File</source>
        <translation>ब्रोकर की फ़ाइल का सौदा</translation>
    </message>
    <message>
        <source>Fair Value of 31-Jan-2018</source>
        <translation>31 जनवरी 2018 का उचित मूल्य</translation>
    </message>
    <message>
        <source>Loss Brought Forward</source>
        <translation>आगे लाई गई हानि</translation>
    </message>
    <message>
        <source>Market Rate</source>
        <translation>बाज़ार भाव</translation>
    </message>
    <message>
        <source>Lot</source>
        <translation>लॉट</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>कोड</translation>
    </message>
    <message>
        <source>Group Code</source>
        <translation>समूह कोड</translation>
    </message>
    <message>
        <source>Second Code</source>
        <translation>दूसरा कोड</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>STD Code</source>
        <translation>एसटीडी कोड</translation>
    </message>
    <message>
        <source>Date of Birth</source>
        <translation>जन्म तिथि</translation>
    </message>
    <message>
        <source>Marital Status</source>
        <translation>वैवाहिक स्थिति</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>A/c No.</source>
        <translation>खाता सं.</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>As On</source>
        <translation>इस तारीख़ से</translation>
    </message>
    <message>
        <source>Other Script</source>
        <translation>दूसरी स्क्रिप</translation>
    </message>
    <message>
        <source>From Demat A/c</source>
        <translation>डीमैट खाते से</translation>
    </message>
    <message>
        <source>To Demat A/c</source>
        <translation>डीमैट खाते को</translation>
    </message>
    <message>
        <source>To Client</source>
        <translation>ग्राहक को</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Shares In</source>
        <translation>आए शेयर</translation>
    </message>
    <message>
        <source>Shares Out</source>
        <translation>गए शेयर</translation>
    </message>
    <message>
        <source>New Rate</source>
        <translation>नया भाव</translation>
    </message>
    <message>
        <source>F &amp; O</source>
        <translation>एफ एंड ओ</translation>
    </message>
    <message>
        <source>Purchase Rate</source>
        <translation>खरीद भाव</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>Net Rate</source>
        <translation>शुद्ध भाव</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>राशि</translation>
    </message>
    <message>
        <source>Dr/Cr</source>
        <translation>नामे/जमा</translation>
    </message>
    <message>
        <source>S. Tax</source>
        <translation>सेवा कर</translation>
    </message>
    <message>
        <source>Delivery Type</source>
        <translation>डिलीवरी का प्रकार</translation>
    </message>
    <message>
        <source>Bill No.</source>
        <translation>बिल सं.</translation>
    </message>
    <message>
        <source>Settlement No.</source>
        <translation>सेटलमेंट सं.</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Total of the Lines</source>
        <translation>पंक्तियों का योग</translation>
    </message>
    <message>
        <source>Other Charges</source>
        <translation>अन्य शुल्क</translation>
    </message>
    <message>
        <source>Transaction Charges</source>
        <translation>लेनदेन प्रभार</translation>
    </message>
    <message>
        <source>Transaction Mode</source>
        <translation>लेनदेन का तरीक़ा</translation>
    </message>
    <message>
        <source>Payment Mode</source>
        <translation>भुगतान का तरीक़ा</translation>
    </message>
    <message>
        <source>Cheque No.</source>
        <translation>चेक सं.</translation>
    </message>
    <message>
        <source>Cheque Date</source>
        <translation>चेक की तारीख़</translation>
    </message>
    <message>
        <source>Drawn On</source>
        <translation>अदाकर्ता बैंक</translation>
    </message>
    <message>
        <source>Ex-Date</source>
        <translation>एक्स-डेट</translation>
    </message>
    <message>
        <source>Record Date</source>
        <translation>रिकॉर्ड तारीख़</translation>
    </message>
    <message>
        <source>Allotment Date</source>
        <translation>आबंटन तारीख़</translation>
    </message>
    <message>
        <source>New Shares</source>
        <translation>नए शेयर</translation>
    </message>
    <message>
        <source>Old Shares</source>
        <translation>पुराने शेयर</translation>
    </message>
    <message>
        <source>Part of the Cost</source>
        <translation>लागत का भाग</translation>
    </message>
    <message>
        <source>Dividend per Share</source>
        <translation>प्रति शेयर लाभांश</translation>
    </message>
    <message>
        <source>From</source>
        <translation>तारीख़ से</translation>
    </message>
    <message>
        <source>Year of the Loss</source>
        <translation>हानि का वर्ष</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>पंक्तियाँ</translation>
    </message>
    <message>
        <source>You have no Right to Delete Records.</source>
        <translation>आपको रिकॉर्ड हटाने का अधिकार नहीं है।</translation>
    </message>
    <message>
        <source>Only a User who may Administer can do this.</source>
        <translation>यह केवल प्रशासन का अधिकार रखने वाला उपयोगकर्ता कर सकता है।</translation>
    </message>
    <message>
        <source>You may Look at Records, not Enter or Change them.</source>
        <translation>आप रिकॉर्ड देख सकते हैं, दर्ज या बदल नहीं सकते।</translation>
    </message>
    <message>
        <source>%1 Changed this Record on %2 at %3 while You had it Open.</source>
        <translation>जब यह रिकॉर्ड आपके पास खुला था, %1 ने %2 पर %3 को इसे बदला।</translation>
    </message>
    <message>
        <source>What differs: as it is Stored, and as You Entered it.</source>
        <translation>अंतर: जैसा सहेजा है, और जैसा आपने दर्ज किया।</translation>
    </message>
    <message>
        <source>Save again to put Yours in its place, or cancel to keep what is Stored.</source>
        <translation>अपना रखने के लिए फिर सहेजें, या सहेजा हुआ रखने के लिए रद्द करें।</translation>
    </message>
    <message>
        <source>It can&apos;t be Taken Back: Trades of it were Taken In Again.</source>
        <translation>इसे वापस नहीं लिया जा सकता: इसके सौदे फिर से ले लिए गए हैं।</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>पता</translation>
    </message>
    <message>
        <source>City</source>
        <translation>शहर</translation>
    </message>
    <message>
        <source>State</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>PIN</source>
        <translation>पिन</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Mobile</source>
        <translation>मोबाइल</translation>
    </message>
    <message>
        <source>Fax</source>
        <translation>फ़ैक्स</translation>
    </message>
    <message>
        <source>E-Mail</source>
        <translation>ई-मेल</translation>
    </message>
    <message>
        <source>PAN</source>
        <translation>पैन</translation>
    </message>
    <message>
        <source>Sex</source>
        <translation>लिंग</translation>
    </message>
    <message>
        <source>Contact Person</source>
        <translation>संपर्क व्यक्ति</translation>
    </message>
    <message>
        <source>Designation</source>
        <translation>पदनाम</translation>
    </message>
    <message>
        <source>Depository</source>
        <translation>डिपॉज़िटरी</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Rights</source>
        <translation>अधिकार</translation>
    </message>
    <message>
        <source>Percent</source>
        <translation>प्रतिशत</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>मूल्य</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>योग</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी.</translation>
    </message>
    <message>
        <source>Tax Deducted</source>
        <translation>काटा गया कर</translation>
    </message>
    <message>
        <source>Sale/Purchase</source>
        <translation>बिक्री/ख़रीद</translation>
    </message>
    <message>
        <source>To</source>
        <translation>को</translation>
    </message>
    <message>
        <source>Acquired</source>
        <translation>लिए जाने का दिन</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Comparison with a Statement</source>
        <translation>विवरण से तुलना</translation>
    </message>
    <message>
        <source>Statement of</source>
        <translation>विवरण का दिन</translation>
    </message>
    <message>
        <source>Holdings Compared</source>
        <translation>तुलना की गई होल्डिंग</translation>
    </message>
    <message>
        <source>Holdings that Differ</source>
        <translation>अलग होल्डिंग</translation>
    </message>
    <message>
        <source>Compared On</source>
        <translation>तुलना की तारीख</translation>
    </message>
    <message>
        <source>%1 Deleted this Record on %2 at %3 while You had it Open.
Save again to Enter it as a new one, or cancel.</source>
        <translation>जब यह रिकॉर्ड आपके पास खुला था, %1 ने %2 पर %3 को इसे हटा दिया।
इसे नए रिकॉर्ड के रूप में दर्ज करने के लिए फिर से सहेजें, या रद्द करें।</translation>
    </message>
    <message>
        <source>%1 Changed many Records on %2 at %3 while You had this one Open. It may be among them.</source>
        <translation>जब यह रिकॉर्ड आपके पास खुला था, %1 ने %2 पर %3 को बहुत से रिकॉर्ड बदले। यह उनमें हो सकता है।</translation>
    </message>
    <message>
        <source>This Record was Deleted while You had it Open. %1 Changed many Records on %2 at %3.
Save again to Enter it as a new one, or cancel.</source>
        <translation>जब यह रिकॉर्ड आपके पास खुला था, इसे हटा दिया गया। %1 ने %2 पर %3 को बहुत से रिकॉर्ड बदले।
इसे नए रिकॉर्ड के रूप में दर्ज करने के लिए फिर से सहेजें, या रद्द करें।</translation>
    </message>
</context>
<context>
    <name>ClientList</name>
    <message>
        <source>Stock is Updated Successfully !!!</source>
        <translation>स्टॉक सफलतापूर्वक अद्यतन हुआ !!!</translation>
    </message>
</context>
<context>
    <name>Clients</name>
    <message>
        <source>Enter Client Code.</source>
        <translation>ग्राहक कोड भरें।</translation>
    </message>
    <message>
        <source>Enter Client Name.</source>
        <translation>ग्राहक का नाम भरें।</translation>
    </message>
    <message>
        <source>Enter Demat A/c Details.</source>
        <translation>डीमैट खाते का विवरण भरें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Male</source>
        <translation>पुरुष</translation>
    </message>
    <message>
        <source>Female</source>
        <translation>महिला</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>अन्य</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>अविवाहित</translation>
    </message>
    <message>
        <source>Married</source>
        <translation>विवाहित</translation>
    </message>
    <message>
        <source>Widowed</source>
        <translation>विधवा/विधुर</translation>
    </message>
    <message>
        <source>Divorced</source>
        <translation>तलाक़शुदा</translation>
    </message>
    <message>
        <source>Enter Proper PAN.</source>
        <translation>सही पैन भरें।</translation>
    </message>
    <message>
        <source>Client Code Already Exists.</source>
        <translation>यह ग्राहक कोड पहले से है।</translation>
    </message>
    <message>
        <source>The Client is Deleted, but the Document could not be.</source>
        <translation>ग्राहक हटा दिया गया, पर दस्तावेज़ नहीं हट सका।</translation>
    </message>
    <message>
        <source>The Client is Saved, but the Document could not be Filed.</source>
        <translation>ग्राहक सहेजा गया, पर दस्तावेज़ नहीं रखा जा सका।</translation>
    </message>
    <message>
        <source>Format Not Supported.</source>
        <translation>यह फ़ाइल प्रकार समर्थित नहीं है।</translation>
    </message>
    <message>
        <source>Could not create Image Viewer Object.</source>
        <translation>चित्र दर्शक नहीं बन सका।</translation>
    </message>
    <message>
        <source>The Document is too Large to be Shown.</source>
        <translation>दस्तावेज़ दिखाने के लिए बहुत बड़ा है।</translation>
    </message>
    <message>
        <source>The Image is Broken.</source>
        <translation>चित्र ख़राब है।</translation>
    </message>
    <message>
        <source>The PDF Document is Broken.</source>
        <translation>पीडीएफ़ दस्तावेज़ ख़राब है।</translation>
    </message>
    <message>
        <source>The PDF Document is Protected by a Password.</source>
        <translation>पीडीएफ़ दस्तावेज़ पासवर्ड से सुरक्षित है।</translation>
    </message>
    <message>
        <source>File does not Exist.</source>
        <translation>फ़ाइल मौजूद नहीं है।</translation>
    </message>
    <message>
        <source>Could not create PDF Object.</source>
        <translation>पीडीएफ़ दर्शक नहीं बन सका।</translation>
    </message>
    <message>
        <source>The File is too Large. At Most %1 MB are Allowed.</source>
        <translation>फ़ाइल बहुत बड़ी है। अधिकतम %1 MB की अनुमति है।</translation>
    </message>
    <message>
        <source>This File Can&apos;t be Kept as a Document.</source>
        <translation>यह फ़ाइल दस्तावेज़ के रूप में नहीं रखी जा सकती।</translation>
    </message>
    <message>
        <source>The Document can&apos;t be Read: %1</source>
        <translation>दस्तावेज़ पढ़ा नहीं जा सकता: %1</translation>
    </message>
    <message>
        <source>To Show this Document the Program &quot;%1&quot; is Needed, which is not Installed.</source>
        <translation>यह दस्तावेज़ दिखाने के लिए प्रोग्राम &quot;%1&quot; चाहिए, जो स्थापित नहीं है।</translation>
    </message>
    <message>
        <source>The Document holds no Text.</source>
        <translation>दस्तावेज़ में कोई पाठ नहीं है।</translation>
    </message>
    <message>
        <source>The Document takes too Long to be Shown.</source>
        <translation>दस्तावेज़ दिखाने में बहुत समय लग रहा है।</translation>
    </message>
    <message>
        <source>The Document is Broken.</source>
        <translation>दस्तावेज़ ख़राब है।</translation>
    </message>
    <message>
        <source>The Document is of a Newer Kind. Save it as &quot;Rich Text&quot; to have it Shown.</source>
        <translation>दस्तावेज़ नए प्रारूप का है। दिखाने के लिए उसे &quot;Rich Text&quot; के रूप में सहेजें।</translation>
    </message>
    <message>
        <source>%1 bills, %2 opening rows, %3 transfers and %4 lots name this Demat A/c. They belong to it again when its number is entered again. Remove it?</source>
        <translation>%1 बिल, %2 आरंभिक पंक्तियाँ, %3 हस्तांतरण और %4 लॉट इस डीमैट खाते के नाम हैं। इसका नंबर फिर भरने पर वे फिर इसी के होंगे। क्या इसे हटाएँ?</translation>
    </message>
    <message>
        <source>The Program &quot;quorvane-reader&quot;, which Reads Documents, is Missing. Install Quorvane Again.</source>
        <translation>दस्तावेज़ पढ़ने वाला प्रोग्राम &quot;quorvane-reader&quot; नहीं मिला। Quorvane फिर से इंस्टॉल करें।</translation>
    </message>
    <message>
        <source>The Document is Broken, or Showing it Needs too Much Memory.</source>
        <translation>दस्तावेज़ ख़राब है, या उसे दिखाने के लिए बहुत अधिक मेमोरी चाहिए।</translation>
    </message>
</context>
<context>
    <name>Database</name>
    <message>
        <source>The server tells table names apart by upper and lower case. Set lower_case_table_names=1 in its settings file (section [mysqld]), start it again and make the database after that.</source>
        <translation>सर्वर तालिकाओं के नामों में बड़े और छोटे अक्षरों को अलग मानता है। उसकी सेटिंग फ़ाइल (भाग [mysqld]) में lower_case_table_names=1 लिखें, उसे फिर से चलाएँ और उसके बाद डेटाबेस बनाएँ।</translation>
    </message>
    <message>
        <source>The server does not give the user %1 these rights on the database %2: %3.</source>
        <translation>सर्वर उपयोगकर्ता %1 को डेटाबेस %2 पर ये अधिकार नहीं देता: %3।</translation>
    </message>
    <message>
        <source>The server refused a statement that the tables need: %1</source>
        <translation>सर्वर ने एक कथन अस्वीकार किया जिसकी तालिकाओं को ज़रूरत है: %1</translation>
    </message>
</context>
<context>
    <name>DesktopFiles</name>
    <message>
        <source>Save As</source>
        <translation>इस नाम से सहेजें</translation>
    </message>
    <message>
        <source>Choose a File</source>
        <translation>फ़ाइल चुनें</translation>
    </message>
    <message>
        <source>Choose a Folder</source>
        <translation>फ़ोल्डर चुनें</translation>
    </message>
    <message>
        <source>Choose Files</source>
        <translation>फ़ाइलें चुनें</translation>
    </message>
</context>
<context>
    <name>Dividends</name>
    <message>
        <source>Select Demat Account.</source>
        <translation>डीमैट खाता चुनें।</translation>
    </message>
    <message>
        <source>Select Script.</source>
        <translation>शेयर चुनें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Enter a Date within the Financial Year.</source>
        <translation>वित्तीय वर्ष के भीतर की तारीख़ दर्ज करें।</translation>
    </message>
    <message>
        <source>Enter Quantity.</source>
        <translation>मात्रा दर्ज करें।</translation>
    </message>
    <message>
        <source>Enter the Dividend per Share.</source>
        <translation>प्रति शेयर लाभांश दर्ज करें।</translation>
    </message>
    <message>
        <source>Enter Tax Deducted between 0 and the Dividend.</source>
        <translation>काटा गया कर 0 और लाभांश के बीच दर्ज करें।</translation>
    </message>
</context>
<context>
    <name>Documents</name>
    <message>
        <source>None of the Passwords Opens the Document. It is Often the PAN of the First Holder in Capitals.</source>
        <translation>किसी पासवर्ड से दस्तावेज़ नहीं खुलता। पासवर्ड प्रायः पहले धारक का पैन बड़े अक्षरों में होता है।</translation>
    </message>
    <message>
        <source>The Document is Protected by a Password. It is Often the PAN of the First Holder in Capitals.</source>
        <translation>दस्तावेज़ पासवर्ड से सुरक्षित है। पासवर्ड प्रायः पहले धारक का पैन बड़े अक्षरों में होता है।</translation>
    </message>
    <message>
        <source>Reading the Document</source>
        <translation>दस्तावेज़ पढ़ा जा रहा है</translation>
    </message>
    <message>
        <source>The Document has no Text: it is a Picture of Paper. Ask for the File that was Sent by E-Mail, or for One as Comma Separated Text or Workbook.</source>
        <translation>दस्तावेज़ में पाठ नहीं है: यह काग़ज़ का चित्र है। ई-मेल से भेजी गई फ़ाइल, या CSV अथवा वर्कबुक माँगें।</translation>
    </message>
</context>
<context>
    <name>DoubleKeys</name>
    <message>
        <source>%1: the records of key %2 stay as they are, because records of %3 name the key and nothing tells which of them is meant. Do not delete one of them in its window: both would go. Restore a BackUp.</source>
        <translation>%1: कुंजी %2 के रिकॉर्ड जैसे हैं वैसे ही रहेंगे, क्योंकि %3 के रिकॉर्ड उस कुंजी का उपयोग करते हैं और यह पता नहीं चलता कि कौन-सा अभिप्रेत है। इनमें से किसी को उसकी विंडो में न हटाएँ: दोनों हट जाएँगे। बैकअप पुनर्स्थापित करें।</translation>
    </message>
    <message>
        <source>Double keys</source>
        <translation>दोहरी कुंजियाँ</translation>
    </message>
</context>
<context>
    <name>FairValues</name>
    <message>
        <source>A Script was Deleted Meanwhile. Open the Window Again.</source>
        <translation>इस बीच एक शेयर हटा दिया गया। विंडो फिर से खोलें।</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>The archive cannot be read.</source>
        <translation>संग्रह पढ़ा नहीं जा सकता।</translation>
    </message>
    <message>
        <source>The archive is locked by a password.</source>
        <translation>संग्रह पासवर्ड से बंद है।</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>संग्रह ख़राब है।</translation>
    </message>
    <message>
        <source>The archive unpacks to more than can be read.</source>
        <translation>संग्रह खुलने पर पढ़ने की सीमा से बड़ा है।</translation>
    </message>
    <message>
        <source>The archive holds a file outside its own folder.</source>
        <translation>संग्रह में उसके फ़ोल्डर से बाहर की फ़ाइल है।</translation>
    </message>
    <message>
        <source>The archive holds something else than files.</source>
        <translation>संग्रह में फ़ाइलों के अलावा कुछ और है।</translation>
    </message>
    <message>
        <source>The archive holds another archive.</source>
        <translation>संग्रह में दूसरा संग्रह है।</translation>
    </message>
    <message>
        <source>The workbook cannot be read.</source>
        <translation>कार्यपुस्तिका पढ़ी नहीं जा सकती।</translation>
    </message>
    <message>
        <source>The workbook is locked by a password.</source>
        <translation>कार्यपुस्तिका पासवर्ड से बंद है।</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>फ़ाइल ख़ाली है।</translation>
    </message>
    <message>
        <source>The file holds more than can be read.</source>
        <translation>फ़ाइल पढ़ने की सीमा से बड़ी है।</translation>
    </message>
    <message>
        <source>The file is a web page, not a table.</source>
        <translation>फ़ाइल एक वेब पेज है, तालिका नहीं।</translation>
    </message>
    <message>
        <source>Line %1: %2.</source>
        <translation>पंक्ति %1: %2।</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The archive holds no .csv file.</source>
        <translation>संग्रह में कोई .csv फ़ाइल नहीं है।</translation>
    </message>
    <message>
        <source>The archive holds more than one .csv file. Unpack it and choose one.</source>
        <translation>संग्रह में एक से अधिक .csv फ़ाइलें हैं। उसे खोलकर एक चुनें।</translation>
    </message>
    <message>
        <source>The file holds no list of records.</source>
        <translation>फ़ाइल में रिकॉर्ड की कोई सूची नहीं है।</translation>
    </message>
    <message>
        <source>The file is no JSON: %1 at character %2.</source>
        <translation>फ़ाइल JSON नहीं है: %1, वर्ण %2 पर।</translation>
    </message>
</context>
<context>
    <name>Guard</name>
    <message>
        <source>The connection to the database was lost. Check whether the last record was saved, then try again.</source>
        <translation>डेटाबेस से कनेक्शन टूट गया। देखें कि पिछला रिकॉर्ड सहेजा गया या नहीं, उसके बाद दोबारा कोशिश करें।</translation>
    </message>
    <message>
        <source>The database was busy with other work. Nothing was changed. Please try again.</source>
        <translation>डेटाबेस दूसरे काम में व्यस्त था। कुछ नहीं बदला गया। कृपया फिर कोशिश करें।</translation>
    </message>
    <message>
        <source>What was not yet saved is still in the window. Mend the cause and try again.</source>
        <translation>जो सहेजा नहीं गया वह अब भी विंडो में है। कारण ठीक करके फिर कोशिश करें।</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was changed.</source>
        <translation>रद्द किया गया। कुछ नहीं बदला गया।</translation>
    </message>
    <message>
        <source>An unknown failure.</source>
        <translation>अज्ञात त्रुटि।</translation>
    </message>
</context>
<context>
    <name>Home</name>
    <message>
        <source>rates up to %1</source>
        <translation>%1 तक के भाव</translation>
    </message>
    <message>
        <source>no rates are recorded</source>
        <translation>कोई भाव दर्ज नहीं है</translation>
    </message>
    <message>
        <source>sales of %1</source>
        <translation>%1 की बिक्री</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मूल्य</translation>
    </message>
    <message>
        <source>Day&apos;s change</source>
        <translation>दिन का बदलाव</translation>
    </message>
    <message>
        <source>Cost</source>
        <translation>लागत</translation>
    </message>
    <message>
        <source>all that is held</source>
        <translation>सारी होल्डिंग</translation>
    </message>
    <message>
        <source>Value less cost</source>
        <translation>मूल्य घटा लागत</translation>
    </message>
    <message>
        <source>what has a rate</source>
        <translation>जिसका भाव है</translation>
    </message>
    <message>
        <source>Long-term gain</source>
        <translation>दीर्घकालिक लाभ</translation>
    </message>
    <message>
        <source>Short-term gain</source>
        <translation>अल्पकालिक लाभ</translation>
    </message>
    <message>
        <source>Speculation</source>
        <translation>सट्टा</translation>
    </message>
    <message>
        <source>The figures could not be read: %1</source>
        <translation>आँकड़े नहीं पढ़े जा सके: %1</translation>
    </message>
    <message>
        <source>The figures are being read ...</source>
        <translation>आँकड़े पढ़े जा रहे हैं ...</translation>
    </message>
    <message>
        <source>never</source>
        <translation>कभी नहीं</translation>
    </message>
    <message>
        <source>Figures of %1 of %2 clients; the others are being computed ...</source>
        <translation>%2 में से %1 ग्राहकों के आँकड़े; बाकी की गणना हो रही है ...</translation>
    </message>
    <message>
        <source>Figures as checked on %1; being checked again ...</source>
        <translation>%1 को जाँचे गए आँकड़े; फिर जाँच हो रही है ...</translation>
    </message>
    <message>
        <source>Figures as checked on %1</source>
        <translation>%1 को जाँचे गए आँकड़े</translation>
    </message>
    <message>
        <source>recorded, to be received</source>
        <translation>दर्ज, मिलना बाकी</translation>
    </message>
    <message>
        <source>announced</source>
        <translation>घोषित</translation>
    </message>
    <message>
        <source>not recorded yet</source>
        <translation>अभी दर्ज नहीं</translation>
    </message>
    <message>
        <source>Bill</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Payment</translation>
    </message>
    <message>
        <source>Receipt</source>
        <translation>प्राप्ति</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>अंतरण</translation>
    </message>
    <message>
        <source>%1 demat accounts do not agree with their last statement.</source>
        <translation>%1 डीमैट खाते अपने पिछले विवरण से नहीं मिलते।</translation>
    </message>
    <message>
        <source>%1 demat accounts were never compared with a statement.</source>
        <translation>%1 डीमैट खातों की किसी विवरण से कभी तुलना नहीं हुई।</translation>
    </message>
    <message>
        <source>%1 demat accounts have no statement of the last six months.</source>
        <translation>%1 डीमैट खातों का पिछले छह महीनों का कोई विवरण नहीं है।</translation>
    </message>
    <message>
        <source>never compared</source>
        <translation>कभी तुलना नहीं हुई</translation>
    </message>
    <message>
        <source>does not agree</source>
        <translation>नहीं मिलता</translation>
    </message>
    <message>
        <source>older than six months</source>
        <translation>छह महीने से पुराना</translation>
    </message>
    <message>
        <source>agrees</source>
        <translation>मिलता है</translation>
    </message>
    <message>
        <source>All clients</source>
        <translation>सभी ग्राहक</translation>
    </message>
</context>
<context>
    <name>Imports</name>
    <message>
        <source>Saving scrips</source>
        <translation>शेयर सहेजे जा रहे हैं</translation>
    </message>
    <message>
        <source>Scrips</source>
        <translation>शेयर</translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>User Not Found!</source>
        <translation>उपयोगकर्ता नहीं मिला!</translation>
    </message>
    <message>
        <source>Enter Login ID.</source>
        <translation>लॉगिन आईडी भरें।</translation>
    </message>
    <message>
        <source>Enter Old Password.</source>
        <translation>पुराना पासवर्ड भरें।</translation>
    </message>
    <message>
        <source>Enter New Password.</source>
        <translation>नया पासवर्ड भरें।</translation>
    </message>
    <message>
        <source>Enter Confirm Password.</source>
        <translation>पासवर्ड दोबारा भरें।</translation>
    </message>
    <message>
        <source>New Password and Confirm Password not Match.</source>
        <translation>नया पासवर्ड और दोबारा भरा पासवर्ड मेल नहीं खाते।</translation>
    </message>
    <message>
        <source>You have no Rights to Enter in SetUp.</source>
        <translation>आपको सेट अप में जाने का अधिकार नहीं है।</translation>
    </message>
    <message>
        <source>Invalid Password.</source>
        <translation>ग़लत पासवर्ड।</translation>
    </message>
    <message>
        <source>InVaild Password.</source>
        <translation>ग़लत पासवर्ड।</translation>
    </message>
    <message>
        <source>Old Password is Incorrect.</source>
        <translation>पुराना पासवर्ड ग़लत है।</translation>
    </message>
    <message>
        <source>Password has Successfully Changed.</source>
        <translation>पासवर्ड सफलतापूर्वक बदल गया।</translation>
    </message>
</context>
<context>
    <name>LookupMasters</name>
    <message>
        <source>Script Type</source>
        <translation>शेयर प्रकार</translation>
    </message>
    <message>
        <source>Script &amp;Type</source>
        <translation>शेयर प्रकार (&amp;T)</translation>
    </message>
    <message>
        <source>Script Class</source>
        <translation>शेयर श्रेणी</translation>
    </message>
    <message>
        <source>Script Class Na&amp;me</source>
        <translation>शेयर श्रेणी का नाम (&amp;M)</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>&amp;Exchange Name</source>
        <translation>एक्सचेंज का नाम (&amp;E)</translation>
    </message>
    <message>
        <source>S.T.T. Percent Detail</source>
        <translation>एस.टी.टी. प्रतिशत विवरण</translation>
    </message>
    <message>
        <source>&amp;S.T.T. Percent</source>
        <translation>एस.टी.टी. प्रतिशत (&amp;S)</translation>
    </message>
    <message>
        <source>Brokerage and Tax Percentages</source>
        <translation>दलाली और कर प्रतिशत</translation>
    </message>
    <message>
        <source>&amp;Financial Year</source>
        <translation>वित्तीय वर्ष (&amp;F)</translation>
    </message>
    <message>
        <source>Delivery &amp;Type</source>
        <translation>डिलीवरी का प्रकार (&amp;T)</translation>
    </message>
    <message>
        <source>P&amp;ercentage</source>
        <translation>प्रतिशत (&amp;E)</translation>
    </message>
    <message>
        <source>As &amp;On</source>
        <translation>इस तारीख़ से (&amp;O)</translation>
    </message>
    <message>
        <source>Enter Script Type.</source>
        <translation>शेयर प्रकार भरें।</translation>
    </message>
    <message>
        <source>Script Class Name</source>
        <translation>शेयर श्रेणी का नाम</translation>
    </message>
    <message>
        <source>Enter Script Class Name.</source>
        <translation>शेयर श्रेणी का नाम भरें।</translation>
    </message>
    <message>
        <source>Exchange Name</source>
        <translation>एक्सचेंज का नाम</translation>
    </message>
    <message>
        <source>Enter Exchange Name.</source>
        <translation>एक्सचेंज का नाम भरें।</translation>
    </message>
    <message>
        <source>S.T.T. Percent</source>
        <translation>एस.टी.टी. प्रतिशत</translation>
    </message>
    <message>
        <source>Enter S.T.T. Percent.</source>
        <translation>एस.टी.टी. प्रतिशत भरें।</translation>
    </message>
    <message>
        <source>Financial Year</source>
        <translation>वित्तीय वर्ष</translation>
    </message>
    <message>
        <source>Enter Financial Year.</source>
        <translation>वित्तीय वर्ष भरें।</translation>
    </message>
    <message>
        <source>Delivery Type</source>
        <translation>डिलीवरी का प्रकार</translation>
    </message>
    <message>
        <source>Select Delivery Type .</source>
        <translation>डिलीवरी का प्रकार चुनें।</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>प्रतिशत</translation>
    </message>
    <message>
        <source>Enter Percentage.</source>
        <translation>प्रतिशत भरें।</translation>
    </message>
    <message>
        <source>As On</source>
        <translation>इस तारीख़ से</translation>
    </message>
    <message>
        <source>Script Type Already Exists.</source>
        <translation>यह शेयर प्रकार पहले से है।</translation>
    </message>
    <message>
        <source>Script Class Already Exists!</source>
        <translation>यह शेयर श्रेणी पहले से है!</translation>
    </message>
    <message>
        <source>Exchange Name Already Exists.</source>
        <translation>एक्सचेंज का यह नाम पहले से है।</translation>
    </message>
    <message>
        <source>S.T.T. Percent Already Exists.</source>
        <translation>यह एस.टी.टी. प्रतिशत पहले से है।</translation>
    </message>
    <message>
        <source>Percent Detail Already Exists.</source>
        <translation>यह प्रतिशत विवरण पहले से है।</translation>
    </message>
    <message>
        <source>Enter Proper Financial Year</source>
        <translation>सही वित्तीय वर्ष भरें</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Making the database folder ...</source>
        <translation>डेटाबेस फ़ोल्डर बनाया जा रहा है ...</translation>
    </message>
    <message>
        <source>The disk of %1 is full. Records can be shown, exported and backed up to another disk; nothing can be changed until there is room and the program was started again.</source>
        <translation>%1 की डिस्क भर गई है। रिकॉर्ड देखे, निर्यात किए और दूसरी डिस्क पर बैकअप किए जा सकते हैं; जब तक जगह न हो और प्रोग्राम दोबारा शुरू न किया जाए, कुछ बदला नहीं जा सकता।</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Bills</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>Opening</source>
        <translation>प्रारंभिक स्टॉक</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>हस्तांतरण</translation>
    </message>
    <message>
        <source>Payments</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Ledger</source>
        <translation>खाता बही</translation>
    </message>
    <message>
        <source>Profit</source>
        <translation>लाभ</translation>
    </message>
    <message>
        <source>Gains</source>
        <translation>पूँजीगत लाभ</translation>
    </message>
    <message>
        <source>MIS</source>
        <translation>एमआईएस</translation>
    </message>
    <message>
        <source>Update Stock</source>
        <translation>स्टॉक अद्यतन</translation>
    </message>
    <message>
        <source>&amp;Client Info</source>
        <translation>ग्राहक जानकारी (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Master Details</source>
        <translation>मास्टर विवरण (&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Depository Participant</source>
        <translation>डिपॉज़िटरी प्रतिभागी (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Broker Details</source>
        <translation>ब्रोकर विवरण (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Exchange</source>
        <translation>एक्सचेंज (&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Script Details</source>
        <translation>शेयर विवरण (&amp;S)</translation>
    </message>
    <message>
        <source>S&amp;TT Percent Detail</source>
        <translation>एसटीटी प्रतिशत विवरण (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Transaction</source>
        <translation>लेनदेन (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Broker Opening Balance</source>
        <translation>ब्रोकर का प्रारंभिक शेष (&amp;B)</translation>
    </message>
    <message>
        <source>Stock &amp;Opening Balance</source>
        <translation>स्टॉक का प्रारंभिक शेष (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Sale/Purchase Entry</source>
        <translation>बिक्री/ख़रीद प्रविष्टि (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Payment to Broker</source>
        <translation>ब्रोकर को भुगतान (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Receipt From Broker</source>
        <translation>ब्रोकर से प्राप्ति (&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Transfer of Scripts</source>
        <translation>शेयर हस्तांतरण (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Report</source>
        <translation>रिपोर्ट (&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Transaction Report</source>
        <translation>लेनदेन रिपोर्ट (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Various MIS Reports</source>
        <translation>विविध एमआईएस रिपोर्ट (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Broker Ledger</source>
        <translation>ब्रोकर खाता बही (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Demat A/c Statement</source>
        <translation>डीमैट खाता विवरण (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Profit Statement</source>
        <translation>लाभ विवरण (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Capital Gain Statement</source>
        <translation>पूँजीगत लाभ विवरण (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Utility</source>
        <translation>उपयोगिता (&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Import Script Master</source>
        <translation>शेयर मास्टर आयात (&amp;I)</translation>
    </message>
    <message>
        <source>Import Script Market Rate</source>
        <translation>शेयर बाज़ार भाव आयात</translation>
    </message>
    <message>
        <source>Re&amp;fresh Data</source>
        <translation>डेटा ताज़ा करें (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Auto Update Stock</source>
        <translation>स्टॉक स्वतः अद्यतन (&amp;A)</translation>
    </message>
    <message>
        <source>&amp;BackUp</source>
        <translation>बैकअप (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>पुनर्स्थापना (&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Printer Setting</source>
        <translation>प्रिंटर सेटिंग (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Calculator</source>
        <translation>कैलकुलेटर (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Miscellaneous Information</source>
        <translation>विविध जानकारी (&amp;M)</translation>
    </message>
    <message>
        <source>Con&amp;verter</source>
        <translation>परिवर्तक (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Log Out</source>
        <translation>लॉग आउट (&amp;L)</translation>
    </message>
    <message>
        <source>C&amp;ontact Us</source>
        <translation>संपर्क करें (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>बाहर निकलें (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Portfolio</source>
        <translation>पोर्टफ़ोलियो (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Import Portfolio Folder</source>
        <translation>पोर्टफ़ोलियो फ़ोल्डर आयात करें (&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Export Portfolio Folder</source>
        <translation>पोर्टफ़ोलियो फ़ोल्डर निर्यात करें (&amp;E)</translation>
    </message>
    <message>
        <source>Take In the &amp;Sample Portfolio</source>
        <translation>नमूना पोर्टफ़ोलियो लें (&amp;S)</translation>
    </message>
    <message>
        <source>Dividend &amp;Report</source>
        <translation>लाभांश रिपोर्ट (&amp;R)</translation>
    </message>
    <message>
        <source>Script &amp;Page</source>
        <translation>शेयर का पृष्ठ (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Corporate Actions</source>
        <translation>कॉरपोरेट एक्शन (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Dividends</source>
        <translation>लाभांश (&amp;D)</translation>
    </message>
    <message>
        <source>Tax &amp;Year</source>
        <translation>कर वर्ष (&amp;Y)</translation>
    </message>
    <message>
        <source>Broker &amp;Account</source>
        <translation>ब्रोकर खाता (&amp;A)</translation>
    </message>
    <message>
        <source>Ret&amp;urns</source>
        <translation>प्रतिफल (&amp;U)</translation>
    </message>
    <message>
        <source>Trade Boo&amp;ks of Brokers</source>
        <translation>ब्रोकरों की ट्रेड बुक (&amp;K)</translation>
    </message>
    <message>
        <source>Co&amp;mpare with Statement</source>
        <translation>विवरण से मिलान करें (&amp;M)</translation>
    </message>
    <message>
        <source>Contract &amp;Notes</source>
        <translation>अनुबंध नोट (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Fair Values of 31-Jan-2018</source>
        <translation>31 जनवरी 2018 के उचित मूल्य (&amp;F)</translation>
    </message>
    <message>
        <source>L&amp;osses Brought Forward</source>
        <translation>आगे लाई गई हानियाँ (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>विंडो (&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>खोजें (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Client and Year</source>
        <translation>ग्राहक और वर्ष (&amp;C)</translation>
    </message>
    <message>
        <source>Windows as &amp;Tabs</source>
        <translation>विंडो टैब में (&amp;T)</translation>
    </message>
    <message>
        <source>Close &amp;All Windows</source>
        <translation>सभी विंडो बंद करें (&amp;A)</translation>
    </message>
    <message>
        <source>Take &amp;Back the Last Change</source>
        <translation>पिछला बदलाव वापस लें (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Log of Changes</source>
        <translation>बदलावों का लॉग (&amp;L)</translation>
    </message>
    <message>
        <source>Family Bookle&amp;t</source>
        <translation>पारिवारिक पुस्तिका (&amp;T)</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Save or Cancel the Record that is being Entered First.</source>
        <translation>पहले दर्ज हो रहे रिकॉर्ड को सहेजें या रद्द करें।</translation>
    </message>
</context>
<context>
    <name>Masters</name>
    <message>
        <source>Login Id</source>
        <translation>लॉगिन आईडी</translation>
    </message>
    <message>
        <source>%1 is too Long. At Most %2 Characters are Allowed.</source>
        <translation>%1: पाठ बहुत लंबा है। अधिकतम %2 अक्षरों की अनुमति है।</translation>
    </message>
    <message>
        <source>Enter Name.</source>
        <translation>नाम भरें।</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Client Code</source>
        <translation>ग्राहक कोड</translation>
    </message>
    <message>
        <source>Group Code</source>
        <translation>समूह कोड</translation>
    </message>
    <message>
        <source>Client Name</source>
        <translation>ग्राहक का नाम</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>City</source>
        <translation>शहर</translation>
    </message>
    <message>
        <source>State</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>PIN</source>
        <translation>पिन</translation>
    </message>
    <message>
        <source>STD Code</source>
        <translation>एसटीडी कोड</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Mobile</source>
        <translation>मोबाइल</translation>
    </message>
    <message>
        <source>Fax</source>
        <translation>फ़ैक्स</translation>
    </message>
    <message>
        <source>E-Mail</source>
        <translation>ई-मेल</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>संपर्क व्यक्ति</translation>
    </message>
    <message>
        <source>Designation</source>
        <translation>पदनाम</translation>
    </message>
    <message>
        <source>DP Id</source>
        <translation>डीपी आईडी</translation>
    </message>
    <message>
        <source>Are You Sure, You want to Delete this Record?</source>
        <translation>क्या आप सचमुच यह रिकॉर्ड हटाना चाहते हैं?</translation>
    </message>
    <message>
        <source>All Related Records Will be Deleted.</source>
        <translation>सभी संबंधित रिकॉर्ड हट जाएँगे।</translation>
    </message>
    <message>
        <source>All Related Data Will be Deleted.</source>
        <translation>सभी संबंधित डेटा हट जाएगा।</translation>
    </message>
    <message>
        <source>Are You Sure, You want to Delete this Client?
All Related Data will be Deleted.</source>
        <translation>क्या आप सचमुच इस ग्राहक को हटाना चाहते हैं?
सभी संबंधित डेटा हट जाएगा।</translation>
    </message>
    <message>
        <source>Script Code</source>
        <translation>शेयर कोड</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Second Script Code</source>
        <translation>दूसरा शेयर कोड</translation>
    </message>
    <message>
        <source>Bill No.</source>
        <translation>बिल सं.</translation>
    </message>
    <message>
        <source>Settlement No.</source>
        <translation>सेटलमेंट सं.</translation>
    </message>
</context>
<context>
    <name>Notes</name>
    <message>
        <source>The Bill that is to be Replaced was Deleted Meanwhile.</source>
        <translation>जिस बिल को बदलना है वह इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>Shares of %1 that the Replaced Bill Brought were Sold or Transferred. Delete the Later Records First, or Change the Bill by Hand.</source>
        <translation>बदले जाने वाले बिल से आए %1 के शेयर बेचे या अंतरित किए जा चुके हैं। पहले बाद के रिकॉर्ड हटाएँ, या बिल हाथ से बदलें।</translation>
    </message>
    <message>
        <source>The Note does not Add Up: %1</source>
        <translation>नोट का जोड़ नहीं मिलता: %1</translation>
    </message>
    <message>
        <source>There is no Script for %1.</source>
        <translation>%1 का कोई शेयर दर्ज नहीं है।</translation>
    </message>
    <message>
        <source>The Note&apos;s Number cannot be Read.</source>
        <translation>नोट की संख्या पढ़ी नहीं जा सकती।</translation>
    </message>
    <message>
        <source>The Note&apos;s Day cannot be Read.</source>
        <translation>नोट की तारीख़ पढ़ी नहीं जा सकती।</translation>
    </message>
    <message>
        <source>The Note is of %1, a Day in the Future.</source>
        <translation>नोट %1 का है, जो भविष्य की तारीख़ है।</translation>
    </message>
    <message>
        <source>The Note has Another PAN than the Client.</source>
        <translation>नोट पर ग्राहक से भिन्न पैन है।</translation>
    </message>
    <message>
        <source>Select the Broker of the Note.</source>
        <translation>नोट का ब्रोकर चुनें।</translation>
    </message>
    <message>
        <source>The Note is Entered Already.</source>
        <translation>नोट पहले से दर्ज है।</translation>
    </message>
    <message>
        <source>A Bill of this Number is Entered with Other Contents.</source>
        <translation>इस संख्या का बिल भिन्न विवरण के साथ दर्ज है।</translation>
    </message>
    <message>
        <source>Another of the Files is the Same Note.</source>
        <translation>दूसरी फ़ाइल में यही नोट है।</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>तैयार</translation>
    </message>
    <message>
        <source>Replaces a Bill</source>
        <translation>बिल बदलेगा</translation>
    </message>
    <message>
        <source>Entered</source>
        <translation>दर्ज</translation>
    </message>
    <message>
        <source>Script Missing</source>
        <translation>शेयर दर्ज नहीं</translation>
    </message>
    <message>
        <source>Not Taken</source>
        <translation>नहीं लिया गया</translation>
    </message>
    <message>
        <source>Bills of the Day have as many Shares under other Numbers.</source>
        <translation>उस दिन के बिलों में दूसरे नंबरों के तहत इतने ही शेयर हैं।</translation>
    </message>
    <message>
        <source>Probably Entered</source>
        <translation>संभवतः दर्ज</translation>
    </message>
</context>
<context>
    <name>OpeningStock</name>
    <message>
        <source>Select Script Name.</source>
        <translation>शेयर का नाम चुनें।</translation>
    </message>
    <message>
        <source>Enter Quantity Greater than Zero.</source>
        <translation>शून्य से अधिक मात्रा भरें।</translation>
    </message>
    <message>
        <source>Select Demat A/c No.</source>
        <translation>डीमैट खाता सं. चुनें।</translation>
    </message>
    <message>
        <source>Enter Purchase Date.</source>
        <translation>ख़रीद की तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Rate Can&apos;t be Negative.</source>
        <translation>दर ऋणात्मक नहीं हो सकती।</translation>
    </message>
    <message>
        <source>Opening stock</source>
        <translation>प्रारंभिक स्टॉक</translation>
    </message>
</context>
<context>
    <name>OutputFormat</name>
    <message>
        <source>Text</source>
        <translation>पाठ</translation>
    </message>
    <message>
        <source>Comma separated values</source>
        <translation>अल्पविराम से अलग मान</translation>
    </message>
    <message>
        <source>PDF document</source>
        <translation>पीडीएफ़ दस्तावेज़</translation>
    </message>
    <message>
        <source>Workbook</source>
        <translation>कार्यपुस्तिका</translation>
    </message>
    <message>
        <source>Rich text document</source>
        <translation>रिच टेक्स्ट दस्तावेज़</translation>
    </message>
</context>
<context>
    <name>Pan</name>
    <message>
        <source>Fourth character of PAN should be [P,H,C,J,F,A,T,B,L,G].</source>
        <translation>पैन का चौथा अक्षर [P,H,C,J,F,A,T,B,L,G] में से होना चाहिए।</translation>
    </message>
</context>
<context>
    <name>Portfolio</name>
    <message>
        <source>corporate actions</source>
        <translation>कॉरपोरेट एक्शन</translation>
    </message>
    <message>
        <source>opening stock without cost</source>
        <translation>बिना लागत का आरंभिक स्टॉक</translation>
    </message>
    <message>
        <source>comparisons with statements</source>
        <translation>विवरणों से तुलनाएँ</translation>
    </message>
    <message>
        <source>trades of brokers&apos; files</source>
        <translation>ब्रोकरों की फ़ाइलों के सौदे</translation>
    </message>
    <message>
        <source>participants</source>
        <translation>प्रतिभागी</translation>
    </message>
    <message>
        <source>clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>brokers</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>scrips</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>percentages</source>
        <translation>प्रतिशत</translation>
    </message>
    <message>
        <source>accounts</source>
        <translation>खाते</translation>
    </message>
    <message>
        <source>payments</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>receipts</source>
        <translation>प्राप्तियाँ</translation>
    </message>
    <message>
        <source>broker openings</source>
        <translation>ब्रोकरों के प्रारंभिक शेष</translation>
    </message>
    <message>
        <source>market rates</source>
        <translation>बाज़ार भाव</translation>
    </message>
    <message>
        <source>ISINs</source>
        <translation>ISIN</translation>
    </message>
    <message>
        <source>opening lots</source>
        <translation>प्रारंभिक लॉट</translation>
    </message>
    <message>
        <source>bills</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>bill lines</source>
        <translation>बिल पंक्तियाँ</translation>
    </message>
    <message>
        <source>transfers</source>
        <translation>हस्तांतरण</translation>
    </message>
    <message>
        <source>fair values</source>
        <translation>उचित मूल्य</translation>
    </message>
    <message>
        <source>losses brought forward</source>
        <translation>आगे लाई गई हानियाँ</translation>
    </message>
</context>
<context>
    <name>PortfolioFolders</name>
    <message>
        <source>The folder was taken in.</source>
        <translation>फ़ोल्डर आयात हो गया।</translation>
    </message>
    <message>
        <source>The sample portfolio is not installed.</source>
        <translation>नमूना पोर्टफ़ोलियो स्थापित नहीं है।</translation>
    </message>
    <message>
        <source>%1 holds CSV files already. Files of a portfolio there are replaced. Write into it?</source>
        <translation>%1 में पहले से CSV फ़ाइलें हैं। वहाँ की पोर्टफ़ोलियो फ़ाइलें बदल दी जाएँगी। क्या उसमें लिखें?</translation>
    </message>
    <message>
        <source>The portfolio lies in %1.</source>
        <translation>पोर्टफ़ोलियो %1 में है।</translation>
    </message>
</context>
<context>
    <name>Posting</name>
    <message>
        <source>You Can&apos;t Update Record.

Qunatity of %1 Script Can&apos;t be Negative Value.</source>
        <translation>रिकॉर्ड सहेजा नहीं जा सकता।

शेयर %1 की मात्रा ऋणात्मक नहीं हो सकती।</translation>
    </message>
    <message>
        <source>This Client was Deleted in the Meantime.</source>
        <translation>यह ग्राहक इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>This Demat A/c was Deleted in the Meantime.</source>
        <translation>यह डीमैट खाता इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>This Broker was Deleted in the Meantime.</source>
        <translation>यह ब्रोकर इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>This Script was Deleted in the Meantime.</source>
        <translation>यह स्क्रिप इस बीच हटा दी गई।</translation>
    </message>
    <message>
        <source>This Exchange was Deleted in the Meantime.</source>
        <translation>यह एक्सचेंज इस बीच हटा दिया गया।</translation>
    </message>
</context>
<context>
    <name>ProfitStatement</name>
    <message>
        <source>Filling the template</source>
        <translation>साँचा भरा जा रहा है</translation>
    </message>
</context>
<context>
    <name>ProgressDialog</name>
    <message>
        <source>Please wait</source>
        <translation>कृपया प्रतीक्षा करें</translation>
    </message>
    <message>
        <source>Stopping...</source>
        <translation>रोका जा रहा है...</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>रद्द करें (&amp;C)</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>हाँ (&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>नहीं (&amp;N)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>सहेजें</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>खोलें</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>लागू करें</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>रीसेट करें</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>सहायता</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>छोड़ दें</translation>
    </message>
</context>
<context>
    <name>Rates</name>
    <message>
        <source>Enter Date.</source>
        <translation>तारीख़ भरें।</translation>
    </message>
    <message>
        <source>You can&apos;t insert future Date</source>
        <translation>भविष्य की तारीख़ नहीं भर सकते</translation>
    </message>
    <message>
        <source>Expected are the columns SC_BCode, SC_NCode, SC_Name, SC_Class, SC_Type; or SC_Code, SC_Name, SC_Group, SC_Class, SC_Type, SC_Rate; or those of an exchange&apos;s daily price file or scrip list.</source>
        <translation>अपेक्षित स्तंभ हैं SC_BCode, SC_NCode, SC_Name, SC_Class, SC_Type; या SC_Code, SC_Name, SC_Group, SC_Class, SC_Type, SC_Rate; या एक्सचेंज की दैनिक भाव फ़ाइल अथवा शेयर सूची के।</translation>
    </message>
    <message>
        <source>Server Problem. Please Try Again.</source>
        <translation>सर्वर में समस्या है। कृपया फिर से प्रयास करें।</translation>
    </message>
    <message>
        <source>Invalid Site.</source>
        <translation>साइट अमान्य है।</translation>
    </message>
    <message>
        <source>File Not Found.This Date Bhav Copy Not available on site.</source>
        <translation>फ़ाइल नहीं मिली। इस तारीख़ की भाव कॉपी साइट पर उपलब्ध नहीं है।</translation>
    </message>
    <message>
        <source>Invalid File.</source>
        <translation>फ़ाइल अमान्य है।</translation>
    </message>
    <message>
        <source>... and %1 more.</source>
        <translation>... और %1 अन्य।</translation>
    </message>
    <message>
        <source>The file holds no scrip.</source>
        <translation>फ़ाइल में कोई शेयर नहीं है।</translation>
    </message>
    <message>
        <source>Expected is a .csv, .xls, .xlsx, .ods or .zip file.</source>
        <translation>.csv, .xls, .xlsx, .ods या .zip फ़ाइल अपेक्षित है।</translation>
    </message>
    <message>
        <source>The file holds no rates.</source>
        <translation>फ़ाइल में कोई भाव नहीं है।</translation>
    </message>
    <message>
        <source>The file holds the prices of %1, not of %2.</source>
        <translation>फ़ाइल में %1 के भाव हैं, %2 के नहीं।</translation>
    </message>
    <message>
        <source>there are more values than headings</source>
        <translation>शीर्षकों से अधिक मान हैं</translation>
    </message>
    <message>
        <source>the file holds two exchanges</source>
        <translation>फ़ाइल में दो एक्सचेंज हैं</translation>
    </message>
    <message>
        <source>%1 is no date</source>
        <translation>%1 कोई तारीख़ नहीं है</translation>
    </message>
    <message>
        <source>the date is another than above</source>
        <translation>तारीख़ ऊपर वाली से अलग है</translation>
    </message>
    <message>
        <source>%1 is no rate</source>
        <translation>%1 कोई भाव नहीं है</translation>
    </message>
    <message>
        <source>there is no code</source>
        <translation>कोड नहीं है</translation>
    </message>
    <message>
        <source>there is no name</source>
        <translation>नाम नहीं है</translation>
    </message>
    <message>
        <source>a text is longer than %1 characters</source>
        <translation>कोई टेक्स्ट %1 अक्षरों से लंबा है</translation>
    </message>
    <message>
        <source>%1 stands in line %2 already, with another rate</source>
        <translation>%1 पहले से पंक्ति %2 में दूसरे भाव के साथ है</translation>
    </message>
    <message>
        <source>Line %1: %2.</source>
        <translation>पंक्ति %1: %2।</translation>
    </message>
    <message>
        <source>The file holds no highest prices of a day.</source>
        <translation>फ़ाइल में किसी दिन के उच्चतम भाव नहीं हैं।</translation>
    </message>
</context>
<context>
    <name>Rebuild</name>
    <message>
        <source>Holdings</source>
        <translation>होल्डिंग</translation>
    </message>
</context>
<context>
    <name>Reconcile</name>
    <message>
        <source>Another Script has the ISIN %1.</source>
        <translation>ISIN %1 दूसरे शेयर का है।</translation>
    </message>
    <message>
        <source>Rows of the Statement could not be Understood:
%1</source>
        <translation>विवरण की ये पंक्तियाँ समझी नहीं जा सकीं:
%1</translation>
    </message>
    <message>
        <source>Enter these Demat Accounts of the Client First:
%1</source>
        <translation>पहले ग्राहक के ये डीमैट खाते दर्ज करें:
%1</translation>
    </message>
    <message>
        <source>These Securities are of no Script with a Code. Assign their ISINs, or Import the Scripts from an Exchange&apos;s Price File:
%1</source>
        <translation>इन प्रतिभूतियों का कोड वाला कोई शेयर दर्ज नहीं है। उनके ISIN सौंपें, या एक्सचेंज की भाव फ़ाइल से शेयर आयात करें:
%1</translation>
    </message>
    <message>
        <source>The Statement has no Holdings to Take In.</source>
        <translation>विवरण में लेने योग्य कोई होल्डिंग नहीं है।</translation>
    </message>
    <message>
        <source>The Client has Records Already. Opening Stock is Taken from a Statement for a New Client Only.</source>
        <translation>ग्राहक के रिकॉर्ड पहले से हैं। विवरण से आरंभिक स्टॉक केवल नए ग्राहक के लिए लिया जाता है।</translation>
    </message>
    <message>
        <source>The File is a %1, no Statement of Holdings.</source>
        <translation>फ़ाइल %1 है, होल्डिंग का विवरण नहीं।</translation>
    </message>
    <message>
        <source>The File has no Holdings that can be Read.</source>
        <translation>फ़ाइल में पढ़ी जा सकने वाली कोई होल्डिंग नहीं है।</translation>
    </message>
    <message>
        <source>The Statement does not say of which Day it is. Enter the Day.</source>
        <translation>विवरण में उसकी तारीख़ नहीं है। तारीख़ दर्ज करें।</translation>
    </message>
    <message>
        <source>The Statement is of %1, a Day in the Future.</source>
        <translation>विवरण %1 का है, जो भविष्य की तारीख़ है।</translation>
    </message>
    <message>
        <source>The Statement names no Account. Select the Demat A/c No.</source>
        <translation>विवरण में खाता नहीं लिखा है। डीमैट खाता संख्या चुनें।</translation>
    </message>
    <message>
        <source>The Client has no Demat A/c.</source>
        <translation>ग्राहक का कोई डीमैट खाता नहीं है।</translation>
    </message>
    <message>
        <source>The Account %1 is of Another Client: %2.</source>
        <translation>खाता %1 दूसरे ग्राहक का है: %2।</translation>
    </message>
    <message>
        <source>No Account of the Statement is a Demat A/c of the Client: %1.</source>
        <translation>विवरण का कोई खाता ग्राहक का डीमैट खाता नहीं है: %1।</translation>
    </message>
    <message>
        <source>Agrees</source>
        <translation>मिलता है</translation>
    </message>
    <message>
        <source>Differs</source>
        <translation>भिन्न है</translation>
    </message>
    <message>
        <source>Missing in the Books</source>
        <translation>बहियों में नहीं</translation>
    </message>
    <message>
        <source>Missing in the Statement</source>
        <translation>विवरण में नहीं</translation>
    </message>
    <message>
        <source>ISIN of no Script</source>
        <translation>ISIN का शेयर दर्ज नहीं</translation>
    </message>
    <message>
        <source>%1 of %2 is recorded and not applied</source>
        <translation>%2 का %1 दर्ज है, लागू नहीं किया गया</translation>
    </message>
    <message>
        <source>%1 of %2 is applied; its shares come later</source>
        <translation>%2 का %1 लागू है; उसके शेयर बाद में आते हैं</translation>
    </message>
    <message>
        <source>Suggests: %1</source>
        <translation>संकेत: %1</translation>
    </message>
    <message>
        <source>Suggests: %1 or %2</source>
        <translation>संकेत: %1 या %2</translation>
    </message>
    <message>
        <source>Bill %1 of %2 was not settled on that day</source>
        <translation>%2 का बिल %1 उस दिन तक निपटा नहीं था</translation>
    </message>
    <message>
        <source>A transfer of %1 is near that day</source>
        <translation>%1 का अंतरण उस दिन के निकट है</translation>
    </message>
    <message>
        <source>The other way round in account %1: a transfer?</source>
        <translation>खाता %1 में उल्टा अंतर: क्या अंतरण है?</translation>
    </message>
    <message>
        <source>The File has no Headings of a Statement of Holdings: a Column of ISINs and One of Balances.</source>
        <translation>फ़ाइल में होल्डिंग विवरण के शीर्षक नहीं हैं: ISIN का और शेष का स्तंभ।</translation>
    </message>
</context>
<context>
    <name>ReportOutput</name>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 of %2</translation>
    </message>
    <message>
        <source>Writing the pages</source>
        <translation>पृष्ठ लिखे जा रहे हैं</translation>
    </message>
    <message>
        <source>Laying out the pages</source>
        <translation>पृष्ठ सजाए जा रहे हैं</translation>
    </message>
    <message>
        <source>Writing the document</source>
        <translation>दस्तावेज़ लिखा जा रहा है</translation>
    </message>
    <message>
        <source>Writing the workbook</source>
        <translation>कार्यपुस्तिका लिखी जा रही है</translation>
    </message>
</context>
<context>
    <name>ReportPeriod</name>
    <message>
        <source>Month is not between in Financial year Period.Pls Fill Correct</source>
        <translation>महीना वित्तीय वर्ष की अवधि में नहीं है। कृपया सही भरें</translation>
    </message>
    <message>
        <source>Enter From Date.</source>
        <translation>“तारीख़ से” भरें।</translation>
    </message>
    <message>
        <source>Enter To Date.</source>
        <translation>“तारीख़ तक” भरें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>From Date Can&apos;t be Greater than To Date.</source>
        <translation>“तारीख़ से” “तारीख़ तक” के बाद की नहीं हो सकती।</translation>
    </message>
    <message>
        <source>The date lies outside the financial year %1.</source>
        <translation>तारीख़ वित्तीय वर्ष %1 से बाहर है।</translation>
    </message>
</context>
<context>
    <name>SameDay</name>
    <message>
        <source>Recorded bills of %1 bought %2 of %3: what was settled without delivery is to be marked Non Delivery Based in both bills.</source>
        <translation>%1 के दर्ज बिलों में %3 के %2 शेयर खरीदे गए हैं: जो बिना डिलीवरी निपटा, उसे दोनों बिलों में Non Delivery Based चिह्नित करना है।</translation>
    </message>
    <message>
        <source>Recorded bills of %1 sold %2 of %3: what was settled without delivery is to be marked Non Delivery Based in both bills.</source>
        <translation>%1 के दर्ज बिलों में %3 के %2 शेयर बेचे गए हैं: जो बिना डिलीवरी निपटा, उसे दोनों बिलों में Non Delivery Based चिह्नित करना है।</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>और %1 अन्य</translation>
    </message>
</context>
<context>
    <name>Scrips</name>
    <message>
        <source>Script Code Already Exists.</source>
        <translation>यह शेयर कोड पहले से है।</translation>
    </message>
    <message>
        <source>Enter Script Code.</source>
        <translation>शेयर कोड भरें।</translation>
    </message>
    <message>
        <source>Enter Script Name.</source>
        <translation>शेयर का नाम भरें।</translation>
    </message>
    <message>
        <source>Select Script Type.</source>
        <translation>शेयर प्रकार चुनें।</translation>
    </message>
    <message>
        <source>Select Script Class.</source>
        <translation>शेयर श्रेणी चुनें।</translation>
    </message>
    <message>
        <source>%1 is no ISIN: Two Letters, Nine Letters or Digits, and the Check Digit.</source>
        <translation>%1 कोई ISIN नहीं है: दो अक्षर, नौ अक्षर या अंक, और जाँच अंक।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>The ISIN %1 is Entered Twice.</source>
        <translation>ISIN %1 दो बार दर्ज है।</translation>
    </message>
</context>
<context>
    <name>Search</name>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Demat Accounts</source>
        <translation>डीमैट खाते</translation>
    </message>
    <message>
        <source>Scrips</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Bills</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>Payments to Brokers</source>
        <translation>ब्रोकरों को भुगतान</translation>
    </message>
    <message>
        <source>Receipts from Brokers</source>
        <translation>ब्रोकरों से प्राप्तियाँ</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>Enter a Resolution from 640 to 16384 Pixels, or 0 for the Screen&apos;s own.</source>
        <translation>640 से 16384 पिक्सेल तक का रिज़ॉल्यूशन भरें, या स्क्रीन का अपना रिज़ॉल्यूशन रखने के लिए 0 भरें।</translation>
    </message>
    <message>
        <source>Enter a Port from 1 to 65535.</source>
        <translation>1 से 65535 तक का पोर्ट भरें।</translation>
    </message>
    <message>
        <source>The Folder %1 does not Exist.</source>
        <translation>फ़ोल्डर %1 मौजूद नहीं है।</translation>
    </message>
    <message>
        <source>The File %1 does not Exist.</source>
        <translation>फ़ाइल %1 मौजूद नहीं है।</translation>
    </message>
    <message>
        <source>Enter a Web Address such as https://www.example.com, or Nothing.</source>
        <translation>https://www.example.com जैसा वेब पता भरें, या ख़ाली छोड़ें।</translation>
    </message>
    <message>
        <source>The Text is too Long. At Most 250 Letters are Kept.</source>
        <translation>पाठ बहुत लंबा है। अधिकतम 250 अक्षर रखे जाते हैं।</translation>
    </message>
    <message>
        <source>Enter the Database Server.</source>
        <translation>डेटाबेस सर्वर भरें।</translation>
    </message>
    <message>
        <source>Enter the Name of the Database.</source>
        <translation>डेटाबेस का नाम भरें।</translation>
    </message>
    <message>
        <source>Enter the Name of an Installed Driver, or a File of the Machine&apos;s Administrator.</source>
        <translation>स्थापित ड्राइवर का नाम, या मशीन के प्रशासक की फ़ाइल भरें।</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Take In the Sample Portfolio</source>
        <translation>नमूना पोर्टफ़ोलियो लें</translation>
    </message>
    <message>
        <source>Made-up clients, bills and rates, to look around in every window.</source>
        <translation>काल्पनिक ग्राहक, बिल और भाव, ताकि हर विंडो देखी जा सके।</translation>
    </message>
    <message>
        <source>Scrips From an Exchange&apos;s File</source>
        <translation>एक्सचेंज की फ़ाइल से शेयर</translation>
    </message>
    <message>
        <source>The scrip list or a daily price file, before the first bill.</source>
        <translation>पहले बिल से पहले शेयर सूची या दैनिक भाव फ़ाइल।</translation>
    </message>
    <message>
        <source>Enter the First Client</source>
        <translation>पहला ग्राहक दर्ज करें</translation>
    </message>
    <message>
        <source>With the demat accounts. Participants and brokers are in the menu Master Details.</source>
        <translation>डीमैट खातों के साथ। डिपॉज़िटरी प्रतिभागी और ब्रोकर मास्टर विवरण के मेनू में हैं।</translation>
    </message>
    <message>
        <source>Import a Portfolio Folder</source>
        <translation>पोर्टफ़ोलियो फ़ोल्डर आयात करें</translation>
    </message>
    <message>
        <source>Clients, bills and balances that another program or an export wrote as CSV files.</source>
        <translation>ग्राहक, बिल और शेष, जिन्हें किसी दूसरे प्रोग्राम या निर्यात ने CSV फ़ाइलों में लिखा है।</translation>
    </message>
</context>
<context>
    <name>TableCheck</name>
    <message>
        <source>Checking the tables</source>
        <translation>तालिकाएँ जाँची जा रही हैं</translation>
    </message>
</context>
<context>
    <name>Tax</name>
    <message>
        <source>Line %1 of advance-tax-windows.csv is no window.</source>
        <translation>advance-tax-windows.csv की पंक्ति %1 कोई अवधि नहीं है।</translation>
    </message>
    <message>
        <source>Enter a Rate Above Zero, of at Most %1 Rupees.</source>
        <translation>शून्य से अधिक और अधिकतम %1 रुपये का भाव दर्ज करें।</translation>
    </message>
    <message>
        <source>Line %1 of %2 is no dated rate.</source>
        <translation>%2 की पंक्ति %1 तारीख़ वाली दर नहीं है।</translation>
    </message>
    <message>
        <source>Line %1 of tax/%2 cannot be read.</source>
        <translation>tax/%2 की पंक्ति %1 पढ़ी नहीं जा सकती।</translation>
    </message>
    <message>
        <source>The tax law of %1 is not in the data of this program.</source>
        <translation>%1 का कर कानून इस प्रोग्राम के डेटा में नहीं है।</translation>
    </message>
    <message>
        <source>Enter a Year before %1.</source>
        <translation>%1 से पहले का वर्ष दर्ज करें।</translation>
    </message>
    <message>
        <source>%1: a loss of %2 may be set off up to %3.</source>
        <translation>%1: %2 की हानि %3 तक ही समायोजित हो सकती है।</translation>
    </message>
    <message>
        <source>Enter an Amount Above Zero.</source>
        <translation>शून्य से अधिक राशि दर्ज करें।</translation>
    </message>
    <message>
        <source>%1 of %2 is Entered Twice.</source>
        <translation>%2 की %1 दो बार दर्ज है।</translation>
    </message>
    <message>
        <source>Long-Term Capital Loss</source>
        <translation>दीर्घकालिक पूँजी हानि</translation>
    </message>
    <message>
        <source>Short-Term Capital Loss</source>
        <translation>अल्पकालिक पूँजी हानि</translation>
    </message>
    <message>
        <source>Speculation Loss</source>
        <translation>सट्टा हानि</translation>
    </message>
</context>
<context>
    <name>TemplateFolder</name>
    <message>
        <source>The template %1 is not there. Put it back, or name its folder in the settings.</source>
        <translation>साँचा %1 नहीं है। उसे वापस रखें, या सेटिंग में उसका फ़ोल्डर बताएँ।</translation>
    </message>
</context>
<context>
    <name>Trades</name>
    <message>
        <source>Nothing was taken in:</source>
        <translation>कुछ भी आयात नहीं हुआ:</translation>
    </message>
    <message>
        <source>%1 ends in the middle of line %2. Fetch the file again: trades may be missing.</source>
        <translation>%1 पंक्ति %2 के बीच में समाप्त होती है। फ़ाइल फिर से लाएँ: सौदे छूट सकते हैं।</translation>
    </message>
    <message>
        <source>There is no broker %1.</source>
        <translation>%1 नाम का कोई ब्रोकर नहीं है।</translation>
    </message>
    <message>
        <source>There is no client %1.</source>
        <translation>%1 कोड का कोई ग्राहक नहीं है।</translation>
    </message>
    <message>
        <source>There is no demat account %1.</source>
        <translation>%1 नंबर का कोई डीमैट खाता नहीं है।</translation>
    </message>
    <message>
        <source>Several clients have an account %1: name the client.</source>
        <translation>कई ग्राहकों का खाता %1 है: ग्राहक बताएँ।</translation>
    </message>
    <message>
        <source>Choose the demat account.</source>
        <translation>डीमैट खाता चुनें।</translation>
    </message>
    <message>
        <source>Choose the broker.</source>
        <translation>ब्रोकर चुनें।</translation>
    </message>
    <message>
        <source>%1 has no row with the headings of a trade book that is known. Expected are those of one of these:
%2</source>
        <translation>%1 में किसी ज्ञात ट्रेड बुक के शीर्षकों वाली पंक्ति नहीं है। इनमें से किसी एक के शीर्षक अपेक्षित हैं:
%2</translation>
    </message>
    <message>
        <source>%1 is of the account %2, not of %3. Nothing was taken in.</source>
        <translation>%1 खाते %2 की है, %3 की नहीं। कुछ भी आयात नहीं हुआ।</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 पढ़ी जा रही है</translation>
    </message>
    <message>
        <source>There are no trades in the file.</source>
        <translation>फ़ाइल में कोई सौदा नहीं है।</translation>
    </message>
    <message>
        <source>%1: %2 shares that were sold are missing</source>
        <translation>%1: बेचे गए %2 शेयर नहीं हैं</translation>
    </message>
    <message>
        <source>Nothing was saved. %1 lines cannot be saved as they are:
%2</source>
        <translation>कुछ भी सहेजा नहीं गया। %1 पंक्तियाँ ऐसे सहेजी नहीं जा सकतीं:
%2</translation>
    </message>
    <message>
        <source>There is nothing new to save.</source>
        <translation>सहेजने को कुछ नया नहीं है।</translation>
    </message>
    <message>
        <source>The script code %1 belongs to several scripts, or to none.</source>
        <translation>शेयर कोड %1 कई शेयरों का है, या किसी का नहीं।</translation>
    </message>
    <message>
        <source>The opening stock of %1 is older than these trades: compare it.</source>
        <translation>%1 का प्रारंभिक स्टॉक इन सौदों से पुराना है: मिलान करें।</translation>
    </message>
    <message>
        <source>Line %1 of %2 is no rule of a layout.</source>
        <translation>%2 की पंक्ति %1 किसी विन्यास का नियम नहीं है।</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>समय</translation>
    </message>
    <message>
        <source>Purchase or Sale</source>
        <translation>खरीद या बिक्री</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मान</translation>
    </message>
    <message>
        <source>Price of Purchases</source>
        <translation>खरीद का भाव</translation>
    </message>
    <message>
        <source>Price of Sales</source>
        <translation>बिक्री का भाव</translation>
    </message>
    <message>
        <source>Quantity Bought</source>
        <translation>खरीदी मात्रा</translation>
    </message>
    <message>
        <source>Value Bought</source>
        <translation>खरीद मूल्य</translation>
    </message>
    <message>
        <source>Quantity Sold</source>
        <translation>बेची मात्रा</translation>
    </message>
    <message>
        <source>Value Sold</source>
        <translation>बिक्री मूल्य</translation>
    </message>
    <message>
        <source>Symbol (NSE)</source>
        <translation>प्रतीक (NSE)</translation>
    </message>
    <message>
        <source>ISIN</source>
        <translation>ISIN</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Script Code (BSE)</source>
        <translation>शेयर कोड (BSE)</translation>
    </message>
    <message>
        <source>Token of the Exchange</source>
        <translation>एक्सचेंज का टोकन</translation>
    </message>
    <message>
        <source>The Broker&apos;s Own Code</source>
        <translation>ब्रोकर का अपना कोड</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>Segment</source>
        <translation>खंड</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>सीरीज़</translation>
    </message>
    <message>
        <source>Trade No.</source>
        <translation>सौदा नं.</translation>
    </message>
    <message>
        <source>Order No.</source>
        <translation>ऑर्डर नं.</translation>
    </message>
    <message>
        <source>Bill No.</source>
        <translation>बिल सं.</translation>
    </message>
    <message>
        <source>Settlement No.</source>
        <translation>सेटलमेंट सं.</translation>
    </message>
    <message>
        <source>Demat Account</source>
        <translation>डीमैट खाता</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>Brokerage a Share</source>
        <translation>प्रति शेयर दलाली</translation>
    </message>
    <message>
        <source>Brokerage with Tax</source>
        <translation>कर सहित दलाली</translation>
    </message>
    <message>
        <source>All Charges in One Sum</source>
        <translation>सभी प्रभार एक राशि में</translation>
    </message>
    <message>
        <source>Goods and Services Tax</source>
        <translation>वस्तु एवं सेवा कर</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी.</translation>
    </message>
    <message>
        <source>Exchange Charges</source>
        <translation>एक्सचेंज प्रभार</translation>
    </message>
    <message>
        <source>SEBI Fee</source>
        <translation>सेबी शुल्क</translation>
    </message>
    <message>
        <source>Stamp Duty</source>
        <translation>स्टाम्प शुल्क</translation>
    </message>
    <message>
        <source>Other Charges</source>
        <translation>अन्य शुल्क</translation>
    </message>
    <message>
        <source>All Charges but Brokerage</source>
        <translation>दलाली छोड़कर सभी प्रभार</translation>
    </message>
    <message>
        <source>New</source>
        <translation>नया</translation>
    </message>
    <message>
        <source>Taken In Already</source>
        <translation>पहले से आयात</translation>
    </message>
    <message>
        <source>Probably Entered by Hand</source>
        <translation>शायद हाथ से दर्ज</translation>
    </message>
    <message>
        <source>Script to be Confirmed</source>
        <translation>शेयर की पुष्टि करें</translation>
    </message>
    <message>
        <source>Unknown Script</source>
        <translation>अज्ञात शेयर</translation>
    </message>
    <message>
        <source>Shares are Missing</source>
        <translation>शेयर कम हैं</translation>
    </message>
    <message>
        <source>Looking through the Trades</source>
        <translation>सौदे जाँचे जा रहे हैं</translation>
    </message>
    <message>
        <source>Trade book, %1 bills</source>
        <translation>ट्रेड बुक, %1 बिल</translation>
    </message>
    <message>
        <source>Nothing was saved: trades of the file, or bills of their days, were recorded meanwhile. Open the file again.</source>
        <translation>कुछ भी सहेजा नहीं गया: इस बीच फ़ाइल के सौदे या उन दिनों के बिल दर्ज कर लिए गए। फ़ाइल फिर से खोलें।</translation>
    </message>
    <message>
        <source>Nothing was saved. What was bought and what was sold without delivery must be of one quantity, and ticked together:
%1</source>
        <translation>कुछ भी सहेजा नहीं गया। बिना डिलीवरी की खरीद और बिक्री की मात्रा बराबर होनी चाहिए, और दोनों पर साथ निशान लगाना होगा:
%1</translation>
    </message>
</context>
<context>
    <name>TransactionReport</name>
    <message>
        <source>Reading bills</source>
        <translation>बिल पढ़े जा रहे हैं</translation>
    </message>
    <message>
        <source>Total Payable</source>
        <translation>Total Payable</translation>
    </message>
    <message>
        <source>Total Receivable</source>
        <translation>Total Receivable</translation>
    </message>
</context>
<context>
    <name>Transactions</name>
    <message>
        <source>Select Client!</source>
        <translation>ग्राहक चुनें!</translation>
    </message>
</context>
<context>
    <name>Transfers</name>
    <message>
        <source>Enter Date.</source>
        <translation>तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>The Date is not in the Financial Year %1.</source>
        <translation>तारीख़ वित्तीय वर्ष %1 में नहीं है।</translation>
    </message>
    <message>
        <source>Select Demat A/c No. From which You want to Transfer Scripts.</source>
        <translation>वह डीमैट खाता सं. चुनें जिससे शेयर हस्तांतरित करने हैं।</translation>
    </message>
    <message>
        <source>Select Demat A/c No. To which You want to Transfer Scripts.</source>
        <translation>वह डीमैट खाता सं. चुनें जिसमें शेयर हस्तांतरित करने हैं।</translation>
    </message>
    <message>
        <source>Select Script Name that You want to Transfer.</source>
        <translation>जिस शेयर को हस्तांतरित करना है उसका नाम चुनें।</translation>
    </message>
    <message>
        <source>Enter Quantity Greater than Zero.</source>
        <translation>शून्य से अधिक मात्रा भरें।</translation>
    </message>
    <message>
        <source>You Can&apos;t Transfer Scripts More than Balance.
Maximum Allowed Value is: %1</source>
        <translation>शेष से अधिक शेयर हस्तांतरित नहीं कर सकते।
अधिकतम मात्रा: %1</translation>
    </message>
</context>
<context>
    <name>Users</name>
    <message>
        <source>User Already Exits!</source>
        <translation>उपयोगकर्ता पहले से है!</translation>
    </message>
    <message>
        <source>Password is too Long.</source>
        <translation>पासवर्ड बहुत लंबा है।</translation>
    </message>
    <message>
        <source>Enter Login Id!</source>
        <translation>लॉगिन आईडी भरें!</translation>
    </message>
    <message>
        <source>Enter Password!</source>
        <translation>पासवर्ड भरें!</translation>
    </message>
    <message>
        <source>Do you want to Delete this User?</source>
        <translation>क्या आप इस उपयोगकर्ता को हटाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Do You want to Exit?</source>
        <translation>क्या आप बाहर निकलना चाहते हैं?</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The template %1 is not there.</source>
        <translation>साँचा %1 नहीं है।</translation>
    </message>
    <message>
        <source>The template %1 is no workbook that can be read (%2).</source>
        <translation>साँचा %1 पढ़ी जा सकने वाली कार्यपुस्तिका नहीं है (%2)।</translation>
    </message>
    <message>
        <source>The template %1 has no cell named &quot;%2&quot;.</source>
        <translation>साँचे %1 में &quot;%2&quot; नाम का कोई सेल नहीं है।</translation>
    </message>
    <message>
        <source>Writing the workbook</source>
        <translation>कार्यपुस्तिका लिखी जा रही है</translation>
    </message>
    <message>
        <source>The cells named &quot;%2...&quot; of the template %1 do not stand in one row.</source>
        <translation>साँचे %1 के &quot;%2...&quot; नाम वाले सेल एक पंक्ति में नहीं हैं।</translation>
    </message>
    <message>
        <source>The rows of the template %1 do not stand on one sheet.</source>
        <translation>साँचे %1 की पंक्तियाँ एक शीट पर नहीं हैं।</translation>
    </message>
    <message>
        <source>The template %1 has no cell of its own named &quot;%2&quot;.</source>
        <translation>साँचे %1 में &quot;%2&quot; नाम का अपना सेल नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::backup::BackupsView</name>
    <message>
        <source>Automatic</source>
        <translation>स्वचालित</translation>
    </message>
    <message>
        <source>Before a restore</source>
        <translation>पुनर्स्थापना से पहले</translation>
    </message>
    <message>
        <source>By hand</source>
        <translation>मैनुअल</translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>जाँचा हुआ</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>पूर्ण</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>ख़राब</translation>
    </message>
    <message>
        <source>Not finished</source>
        <translation>अधूरा</translation>
    </message>
    <message>
        <source>Backups</source>
        <translation>बैकअप</translation>
    </message>
    <message>
        <source>Made</source>
        <translation>बनाया गया</translation>
    </message>
    <message>
        <source>How</source>
        <translation>कैसे</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>आकार</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>फ़ोल्डर</translation>
    </message>
    <message>
        <source>Select a BackUp!</source>
        <translation>बैकअप चुनें!</translation>
    </message>
</context>
<context>
    <name>quorvane::backup::frmBackUpRestore</name>
    <message>
        <source>BackUp</source>
        <translation>बैकअप</translation>
    </message>
    <message>
        <source>Folder of the backups</source>
        <translation>बैकअप का फ़ोल्डर</translation>
    </message>
    <message>
        <source>&amp;Folder</source>
        <translation>फ़ोल्डर (&amp;F)</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>चुनें (&amp;H)...</translation>
    </message>
    <message>
        <source>Back up by itself at the first start of each &amp;day</source>
        <translation>हर दिन पहली बार शुरू होने पर स्वतः बैकअप लें (&amp;D)</translation>
    </message>
    <message>
        <source>Automatic backups to keep</source>
        <translation>रखे जाने वाले स्वचालित बैकअप</translation>
    </message>
    <message>
        <source>&amp;Keep the newest</source>
        <translation>इनमें से सबसे नए (&amp;K)</translation>
    </message>
    <message>
        <source>of these</source>
        <translation>रखें</translation>
    </message>
    <message>
        <source>&amp;Back up now</source>
        <translation>अभी बैकअप लें (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>जाँचें (&amp;V)</translation>
    </message>
    <message>
        <source>Re&amp;store...</source>
        <translation>पुनर्स्थापित करें (&amp;S)...</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>There is no backup in this folder yet.</source>
        <translation>इस फ़ोल्डर में अभी कोई बैकअप नहीं है।</translation>
    </message>
    <message>
        <source>The backup is made and verified:
%1</source>
        <translation>बैकअप बन गया और जाँच लिया गया:
%1</translation>
    </message>
    <message>
        <source>The backup is whole: every file agrees with its checksum.</source>
        <translation>बैकअप पूरा है: हर फ़ाइल अपने चेकसम से मेल खाती है।</translation>
    </message>
</context>
<context>
    <name>quorvane::backup::frmrestoration</name>
    <message>
        <source>Restore</source>
        <translation>पुनर्स्थापना</translation>
    </message>
    <message>
        <source>What the backup holds</source>
        <translation>बैकअप में क्या है</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>सामग्री</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>रिकॉर्ड</translation>
    </message>
    <message>
        <source>Folder of the backups</source>
        <translation>बैकअप का फ़ोल्डर</translation>
    </message>
    <message>
        <source>&amp;Folder</source>
        <translation>फ़ोल्डर (&amp;F)</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>चुनें (&amp;H)...</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>जाँचें (&amp;V)</translation>
    </message>
    <message>
        <source>Re&amp;store</source>
        <translation>पुनर्स्थापित करें (&amp;S)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>There is no backup in this folder.</source>
        <translation>इस फ़ोल्डर में कोई बैकअप नहीं है।</translation>
    </message>
    <message>
        <source>The backup is whole: every file agrees with its checksum.</source>
        <translation>बैकअप पूरा है: हर फ़ाइल अपने चेकसम से मेल खाती है।</translation>
    </message>
    <message>
        <source>The backup of %1 takes the place of everything that the program holds now. All other windows are closed.

Are You Sure, You want to Restore it?</source>
        <translation>%1 का बैकअप प्रोग्राम के वर्तमान सारे डेटा की जगह ले लेगा। बाक़ी सभी विंडो बंद हो जाएँगी।

क्या आप सचमुच उसे पुनर्स्थापित करना चाहते हैं?</translation>
    </message>
    <message>
        <source>Close the other windows first. Nothing was changed.</source>
        <translation>पहले दूसरी विंडो बंद करें। कुछ नहीं बदला गया।</translation>
    </message>
    <message>
        <source>The backup of %1 is restored.
What it replaced lies in %2.</source>
        <translation>%1 का बैकअप पुनर्स्थापित हो गया।
जो पहले था वह %2 में है।</translation>
    </message>
</context>
<context>
    <name>quorvane::bills::BillHeaderPane</name>
    <message>
        <source>&amp;Bill No.</source>
        <translation>बिल सं. (&amp;B)</translation>
    </message>
    <message>
        <source>Bill Date</source>
        <translation>बिल की तारीख़</translation>
    </message>
    <message>
        <source>&amp;Settlement No.</source>
        <translation>सेटलमेंट सं. (&amp;S)</translation>
    </message>
    <message>
        <source>Bro&amp;ker</source>
        <translation>ब्रोकर (&amp;K)</translation>
    </message>
    <message>
        <source>Exchan&amp;ge</source>
        <translation>एक्सचेंज (&amp;G)</translation>
    </message>
    <message>
        <source>Demat A/c</source>
        <translation>डीमैट खाता</translation>
    </message>
    <message>
        <source>%1 of the Bill&apos;s Sales name no Lot. Take the oldest Lots of the Demat A/c?</source>
        <translation>बिल की %1 बिक्री में लॉट नहीं है। क्या डीमैट खाते के सबसे पुराने लॉट लें?</translation>
    </message>
</context>
<context>
    <name>quorvane::bills::BillLineForm</name>
    <message>
        <source>F&amp;&amp;O</source>
        <translation>एफ़&amp;&amp;ओ</translation>
    </message>
    <message>
        <source>Sale</source>
        <translation>बिक्री</translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation>ख़रीद</translation>
    </message>
    <message>
        <source>Sale/Purc&amp;hase</source>
        <translation>बिक्री/ख़रीद (&amp;H)</translation>
    </message>
    <message>
        <source>Deli&amp;very</source>
        <translation>डिलीवरी (&amp;V)</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>Net Rate</source>
        <translation>शुद्ध भाव</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>राशि</translation>
    </message>
    <message>
        <source>Service Tax</source>
        <translation>सेवा कर</translation>
    </message>
    <message>
        <source>S.T.T. %</source>
        <translation>एस.टी.टी. %</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी.</translation>
    </message>
    <message>
        <source>Futures and options</source>
        <translation>वायदा और विकल्प</translation>
    </message>
    <message>
        <source>Scrip Code</source>
        <translation>शेयर कोड</translation>
    </message>
    <message>
        <source>Scrip</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>BSE or NSE</source>
        <translation>बीएसई या एनएसई</translation>
    </message>
    <message>
        <source>Lot</source>
        <translation>लॉट</translation>
    </message>
    <message>
        <source>The lot that a sale draws on, picked from the balance (F9)</source>
        <translation>बिक्री का लॉट, शेष में से चुना हुआ (F9)</translation>
    </message>
    <message>
        <source>%1
BSE %2   NSE %3</source>
        <translation>%1
बीएसई %2   एनएसई %3</translation>
    </message>
    <message>
        <source>New</source>
        <translation>नया</translation>
    </message>
</context>
<context>
    <name>quorvane::bills::BillLinePane</name>
    <message>
        <source>There is no Scrip of the Code %1.</source>
        <translation>कोड %1 का कोई शेयर नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::bills::BillPane</name>
    <message>
        <source>Lines of the bill</source>
        <translation>बिल की पंक्तियाँ</translation>
    </message>
    <message>
        <source>S/P</source>
        <translation>बि/ख़</translation>
    </message>
    <message>
        <source>Scrip</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>Net Rate</source>
        <translation>शुद्ध भाव</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>राशि</translation>
    </message>
    <message>
        <source>Service Tax</source>
        <translation>सेवा कर</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी.</translation>
    </message>
    <message>
        <source>S.T.T. %</source>
        <translation>एस.टी.टी. %</translation>
    </message>
    <message>
        <source>F&amp;O</source>
        <translation>एफ़&amp;ओ</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>Delivery</source>
        <translation>डिलीवरी</translation>
    </message>
    <message>
        <source>%1 at %2, held since %3</source>
        <translation>%1 शेयर, दर %2, %3 से</translation>
    </message>
    <message>
        <source>Take the Sale from these Lots, with a Line for each?

%1</source>
        <translation>क्या बिक्री इन लॉट से लें, हर लॉट की एक पंक्ति?

%1</translation>
    </message>
    <message>
        <source>Are You Sure, You want to Delete this Record?</source>
        <translation>क्या आप सचमुच यह रिकॉर्ड हटाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Refresh Successfully!</source>
        <translation>सफलतापूर्वक ताज़ा हुआ!</translation>
    </message>
    <message>
        <source>S</source>
        <translation>बि</translation>
    </message>
    <message>
        <source>P</source>
        <translation>ख़</translation>
    </message>
</context>
<context>
    <name>quorvane::bills::FrmSalePurchase</name>
    <message>
        <source>Sale / Purchase</source>
        <translation>बिक्री / ख़रीद</translation>
    </message>
    <message>
        <source>Bill No.</source>
        <translation>बिल सं.</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Broker</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>Demat A/c</source>
        <translation>डीमैट खाता</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>योग</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>खोजें</translation>
    </message>
    <message>
        <source>Search bill no., date or broker</source>
        <translation>बिल सं., तारीख़ या ब्रोकर खोजें</translation>
    </message>
    <message>
        <source>This Bill was Deleted in the Meantime.</source>
        <translation>यह बिल इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>The Line is not in the Bill yet. Update or Cancel it First.</source>
        <translation>पंक्ति अभी बिल में नहीं है। पहले उसे सहेजें या रद्द करें।</translation>
    </message>
    <message>
        <source>The bill is not saved. Give it up?</source>
        <translation>बिल सहेजा नहीं गया है। क्या उसे छोड़ दें?</translation>
    </message>
    <message>
        <source>There is a Bill No. %1 of this Broker on %2 already.

Save this one, too?</source>
        <translation>इस ब्रोकर का %2 का बिल सं. %1 पहले से है।

क्या इसे भी सहेजें?</translation>
    </message>
</context>
<context>
    <name>quorvane::bills::HoldingsPane</name>
    <message>
        <source>Balance of the demat account</source>
        <translation>डीमैट खाते का शेष</translation>
    </message>
    <message>
        <source>Quantities of the bill</source>
        <translation>बिल की मात्राएँ</translation>
    </message>
    <message>
        <source>Average rates of the demat account</source>
        <translation>डीमैट खाते के औसत भाव</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>ताज़ा करें</translation>
    </message>
    <message>
        <source>Scrip</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>शेष</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Average Rate</source>
        <translation>औसत भाव</translation>
    </message>
    <message>
        <source>Bill</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>Averages</source>
        <translation>औसत</translation>
    </message>
    <message>
        <source>Reads the balance again (F5)</source>
        <translation>शेष फिर से पढ़ता है (F5)</translation>
    </message>
    <message>
        <source>Balance in Demat A/c No. - %1</source>
        <translation>डीमैट खाता सं. - %1 का शेष</translation>
    </message>
    <message>
        <source>Held Since</source>
        <translation>कब से</translation>
    </message>
</context>
<context>
    <name>quorvane::booklet::RptBooklet</name>
    <message>
        <source>Family Booklet</source>
        <translation>पारिवारिक पुस्तिका</translation>
    </message>
    <message>
        <source>&amp;Client</source>
        <translation>ग्राहक (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Family</source>
        <translation>परिवार (&amp;F)</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>किसका</translation>
    </message>
    <message>
        <source>Parts of the booklet</source>
        <translation>पुस्तिका के भाग</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>भाग</translation>
    </message>
    <message>
        <source>The booklet reports the year up to %1. Each part begins on a page of its own, after a cover and the contents.</source>
        <translation>पुस्तिका में %1 तक का वर्ष होता है। आवरण और विषय-सूची के बाद हर भाग नए पृष्ठ से शुरू होता है।</translation>
    </message>
    <message>
        <source>&amp;Preview and Print</source>
        <translation>पूर्वावलोकन और छपाई (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Write and Open PDF</source>
        <translation>PDF लिखें और खोलें (&amp;W)</translation>
    </message>
    <message>
        <source>Into the folder of reports</source>
        <translation>रिपोर्टों के फ़ोल्डर में</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>Booklet</source>
        <translation>पुस्तिका</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>परिवार</translation>
    </message>
    <message>
        <source>The booklet lies in %1. No program that opens it was found.</source>
        <translation>पुस्तिका %1 में है। उसे खोलने वाला कोई प्रोग्राम नहीं मिला।</translation>
    </message>
</context>
<context>
    <name>quorvane::broker_account::RptBrokerAccount</name>
    <message>
        <source>Broker Account</source>
        <translation>ब्रोकर खाता</translation>
    </message>
    <message>
        <source>BROKER NAME</source>
        <translation>ब्रोकर का नाम</translation>
    </message>
    <message>
        <source>Brokers</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>Enter Broker Name.</source>
        <translation>ब्रोकर का नाम भरें।</translation>
    </message>
</context>
<context>
    <name>quorvane::broker_ledger::RptBrokerLedger</name>
    <message>
        <source>Broker Ledger</source>
        <translation>ब्रोकर खाता बही</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>महीना</translation>
    </message>
    <message>
        <source>BROKER NAME</source>
        <translation>ब्रोकर का नाम</translation>
    </message>
    <message>
        <source>Brokers</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>Enter Broker Name.</source>
        <translation>ब्रोकर का नाम भरें।</translation>
    </message>
    <message>
        <source>Mo&amp;nth</source>
        <translation>महीना (&amp;N)</translation>
    </message>
</context>
<context>
    <name>quorvane::broker_money::FrmBrOpBal</name>
    <message>
        <source>Broker Opening Balance</source>
        <translation>ब्रोकर का प्रारंभिक शेष</translation>
    </message>
    <message>
        <source>Carry &amp;Forward</source>
        <translation>आगे लाएँ (&amp;F)</translation>
    </message>
    <message>
        <source>Brings the closing balances of the year before into this year</source>
        <translation>पिछले वर्ष के अंतिम शेष इस वर्ष में लाता है</translation>
    </message>
    <message>
        <source>&amp;Broker Name</source>
        <translation>ब्रोकर का नाम (&amp;B)</translation>
    </message>
    <message>
        <source>Broker Name</source>
        <translation>ब्रोकर का नाम</translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation>प्रारंभिक शेष</translation>
    </message>
    <message>
        <source>Dr/Cr</source>
        <translation>नामे/जमा</translation>
    </message>
    <message>
        <source>There are no Balances of the Previous Year to Carry Forward.</source>
        <translation>आगे लाने के लिए पिछले वर्ष का कोई शेष नहीं है।</translation>
    </message>
    <message>
        <source>Do you want to Carry Forward From Previous Year?</source>
        <translation>क्या आप पिछले वर्ष से आगे लाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Openin&amp;g Balance</source>
        <translation>प्रारंभिक शेष (&amp;G)</translation>
    </message>
</context>
<context>
    <name>quorvane::broker_money::FrmBrPayment</name>
    <message>
        <source>&amp;Broker Name</source>
        <translation>ब्रोकर का नाम (&amp;B)</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Cheque Date</source>
        <translation>चेक की तारीख़</translation>
    </message>
    <message>
        <source>Dra&amp;wn On</source>
        <translation>अदाकर्ता बैंक (&amp;W)</translation>
    </message>
    <message>
        <source>Broker Name</source>
        <translation>ब्रोकर का नाम</translation>
    </message>
    <message>
        <source>Transaction Mode</source>
        <translation>लेनदेन का तरीक़ा</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>राशि</translation>
    </message>
    <message>
        <source>Payment Mode</source>
        <translation>भुगतान का तरीक़ा</translation>
    </message>
    <message>
        <source>Cheque No.</source>
        <translation>चेक सं.</translation>
    </message>
    <message>
        <source>Drawn On</source>
        <translation>अदाकर्ता बैंक</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Transact&amp;ion Mode</source>
        <translation>लेनदेन का तरीक़ा (&amp;I)</translation>
    </message>
    <message>
        <source>Payment Mod&amp;e</source>
        <translation>भुगतान का तरीक़ा (&amp;E)</translation>
    </message>
    <message>
        <source>C&amp;heque No.</source>
        <translation>चेक सं. (&amp;H)</translation>
    </message>
    <message>
        <source>Remar&amp;k</source>
        <translation>टिप्पणी (&amp;K)</translation>
    </message>
</context>
<context>
    <name>quorvane::brokers::FrmBroker</name>
    <message>
        <source>Broker Details</source>
        <translation>ब्रोकर विवरण</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>City</source>
        <translation>शहर</translation>
    </message>
    <message>
        <source>State</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Mobile</source>
        <translation>मोबाइल</translation>
    </message>
</context>
<context>
    <name>quorvane::calculator::frmcalc</name>
    <message>
        <source>Calculator</source>
        <translation>कैलकुलेटर</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>परिणाम</translation>
    </message>
    <message>
        <source>MC</source>
        <translation>MC</translation>
    </message>
    <message>
        <source>MR</source>
        <translation>MR</translation>
    </message>
    <message>
        <source>M+</source>
        <translation>M+</translation>
    </message>
    <message>
        <source>M−</source>
        <translation>M−</translation>
    </message>
    <message>
        <source>C</source>
        <translation>C</translation>
    </message>
    <message>
        <source>CE</source>
        <translation>CE</translation>
    </message>
    <message>
        <source>Finished sums</source>
        <translation>पूरे किए गए हिसाब</translation>
    </message>
    <message>
        <source>A click takes the result</source>
        <translation>क्लिक से परिणाम लिया जाता है</translation>
    </message>
    <message>
        <source>Copy All</source>
        <translation>सब कॉपी करें</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>सब मिटाएँ</translation>
    </message>
    <message>
        <source>M %1</source>
        <translation>M %1</translation>
    </message>
    <message>
        <source>The Clipboard Holds no Number.</source>
        <translation>क्लिपबोर्ड में कोई संख्या नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::change_log::FrmChangeLog</name>
    <message>
        <source>Log of Changes</source>
        <translation>बदलावों का लॉग</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>बदलाव</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>सं.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>समय</translation>
    </message>
    <message>
        <source>User</source>
        <translation>उपयोगकर्ता</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>कंप्यूटर</translation>
    </message>
    <message>
        <source>What</source>
        <translation>क्या</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>रिकॉर्ड</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>वर्ष</translation>
    </message>
    <message>
        <source>Takes Back</source>
        <translation>वापस लेता है</translation>
    </message>
    <message>
        <source>Before and after</source>
        <translation>पहले और बाद</translation>
    </message>
    <message>
        <source>Of</source>
        <translation>किसका</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मान</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>पहले</translation>
    </message>
    <message>
        <source>After</source>
        <translation>बाद</translation>
    </message>
    <message>
        <source>Writes the entries before the first day to a file and removes them</source>
        <translation>पहले दिन से पहले की प्रविष्टियाँ फ़ाइल में लिखकर हटाता है</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>तारीख़ से (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>तारीख़ तक (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation>उपयोगकर्ता (&amp;U)</translation>
    </message>
    <message>
        <source>&amp;What</source>
        <translation>क्या (&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Client</source>
        <translation>ग्राहक (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>दिखाएँ (&amp;S)</translation>
    </message>
    <message>
        <source>There is no such change.</source>
        <translation>ऐसा कोई बदलाव नहीं है।</translation>
    </message>
    <message>
        <source>The newest %1 changes; choose days, a user or a client for others.</source>
        <translation>सबसे नए %1 बदलाव; अन्य के लिए दिन, उपयोगकर्ता या ग्राहक चुनें।</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>Enter the Day before which Entries are Removed.</source>
        <translation>वह दिन दर्ज करें जिससे पहले की प्रविष्टियाँ हटानी हैं।</translation>
    </message>
    <message>
        <source>The entries before %1 are in %2. Remove them from the log?</source>
        <translation>%1 से पहले की प्रविष्टियाँ %2 में हैं। उन्हें लॉग से हटाएँ?</translation>
    </message>
    <message>
        <source>%1 Entries were Removed.</source>
        <translation>%1 प्रविष्टियाँ हटाई गईं।</translation>
    </message>
    <message>
        <source>E&amp;xport and Remove Old Entries...</source>
        <translation>पुरानी प्रविष्टियाँ निर्यात कर हटाएँ (&amp;X)...</translation>
    </message>
    <message>
        <source>Changes: %1</source>
        <translation>बदलाव: %1</translation>
    </message>
</context>
<context>
    <name>quorvane::charts::ChartPane</name>
    <message>
        <source>The chart as a table</source>
        <translation>चार्ट तालिका के रूप में</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>छापें</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>चित्र सहेजें</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>तालिका</translation>
    </message>
    <message>
        <source>Print the picture</source>
        <translation>चित्र छापें</translation>
    </message>
    <message>
        <source>Save the picture as PNG</source>
        <translation>चित्र को PNG में सहेजें</translation>
    </message>
    <message>
        <source>Show the table as pages</source>
        <translation>तालिका को पृष्ठों में दिखाएँ</translation>
    </message>
    <message>
        <source>The figures appear here.</source>
        <translation>आँकड़े यहाँ दिखेंगे।</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>चार्ट</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>%1 के रूप में सहेजा गया।</translation>
    </message>
</context>
<context>
    <name>quorvane::charts::ChartPictureView</name>
    <message>
        <source>Rs. crore</source>
        <translation>Rs. crore</translation>
    </message>
    <message>
        <source>Rs. lakh</source>
        <translation>Rs. lakh</translation>
    </message>
    <message>
        <source>Rs.</source>
        <translation>Rs.</translation>
    </message>
    <message>
        <source>Chart; the table beside it says the same</source>
        <translation>Chart; the table beside it says the same</translation>
    </message>
    <message>
        <source>There is nothing to draw.</source>
        <translation>There is nothing to draw.</translation>
    </message>
    <message>
        <source>Per cent of the value</source>
        <translation>Per cent of the value</translation>
    </message>
</context>
<context>
    <name>quorvane::client_list::FrmClientList</name>
    <message>
        <source>Client List</source>
        <translation>ग्राहक सूची</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Client Name</source>
        <translation>ग्राहक का नाम</translation>
    </message>
    <message>
        <source>&amp;Proceed</source>
        <translation>आगे बढ़ें (&amp;P)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>Financial &amp;Year</source>
        <translation>वित्तीय वर्ष (&amp;Y)</translation>
    </message>
    <message>
        <source>Select Client!</source>
        <translation>ग्राहक चुनें!</translation>
    </message>
    <message>
        <source>Enter Proper Financial Year</source>
        <translation>सही वित्तीय वर्ष भरें</translation>
    </message>
</context>
<context>
    <name>quorvane::clients::AccountsPane</name>
    <message>
        <source>Demat accounts of the client</source>
        <translation>ग्राहक के डीमैट खाते</translation>
    </message>
    <message>
        <source>Add Ro&amp;w</source>
        <translation>पंक्ति जोड़ें (&amp;W)</translation>
    </message>
    <message>
        <source>Delete Row</source>
        <translation>पंक्ति हटाएँ</translation>
    </message>
    <message>
        <source>Depository Participant</source>
        <translation>डिपॉज़िटरी प्रतिभागी</translation>
    </message>
    <message>
        <source>DP Id</source>
        <translation>डीपी आईडी</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Demat Accounts</source>
        <translation>डीमैट खाते</translation>
    </message>
</context>
<context>
    <name>quorvane::clients::FrmClientMaster</name>
    <message>
        <source>Client Master</source>
        <translation>ग्राहक मास्टर</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>Client Code</source>
        <translation>ग्राहक कोड</translation>
    </message>
    <message>
        <source>Client Name</source>
        <translation>ग्राहक का नाम</translation>
    </message>
    <message>
        <source>&amp;Client Code</source>
        <translation>ग्राहक कोड (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Group Code</source>
        <translation>समूह कोड (&amp;G)</translation>
    </message>
    <message>
        <source>Client Na&amp;me</source>
        <translation>ग्राहक का नाम (&amp;M)</translation>
    </message>
    <message>
        <source>Add&amp;ress</source>
        <translation>पता (&amp;R)</translation>
    </message>
    <message>
        <source>Ci&amp;ty</source>
        <translation>शहर (&amp;T)</translation>
    </message>
    <message>
        <source>Stat&amp;e</source>
        <translation>राज्य (&amp;E)</translation>
    </message>
    <message>
        <source>P&amp;IN</source>
        <translation>पिन (&amp;I)</translation>
    </message>
    <message>
        <source>STD Code</source>
        <translation>एसटीडी कोड</translation>
    </message>
    <message>
        <source>P&amp;hone</source>
        <translation>फ़ोन (&amp;H)</translation>
    </message>
    <message>
        <source>Mo&amp;bile</source>
        <translation>मोबाइल (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Fax</source>
        <translation>फ़ैक्स (&amp;F)</translation>
    </message>
    <message>
        <source>E-Mai&amp;l</source>
        <translation>ई-मेल (&amp;L)</translation>
    </message>
    <message>
        <source>Date &amp;of Birth</source>
        <translation>जन्म तिथि (&amp;O)</translation>
    </message>
    <message>
        <source>PAN</source>
        <translation>पैन</translation>
    </message>
    <message>
        <source>&amp;Sex</source>
        <translation>लिंग (&amp;S)</translation>
    </message>
    <message>
        <source>Marital Stat&amp;us</source>
        <translation>वैवाहिक स्थिति (&amp;U)</translation>
    </message>
    <message>
        <source>Pic&amp;k...</source>
        <translation>चुनें (&amp;K)...</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>साफ़ करें</translation>
    </message>
    <message>
        <source>Participants...</source>
        <translation>प्रतिभागी...</translation>
    </message>
    <message>
        <source>&amp;View Document</source>
        <translation>दस्तावेज़ देखें (&amp;V)</translation>
    </message>
    <message>
        <source>Documents...</source>
        <translation>दस्तावेज़...</translation>
    </message>
    <message>
        <source>The documents of all clients</source>
        <translation>सभी ग्राहकों के दस्तावेज़</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>This Client was Deleted in the Meantime.</source>
        <translation>यह ग्राहक इस बीच हटा दिया गया।</translation>
    </message>
    <message>
        <source>The client has no document.</source>
        <translation>ग्राहक का कोई दस्तावेज़ नहीं है।</translation>
    </message>
    <message>
        <source>Press &quot;View Document&quot; to see %1.</source>
        <translation>%1 देखने के लिए &quot;दस्तावेज़ देखें&quot; दबाएँ।</translation>
    </message>
    <message>
        <source>Documents (*.bmp *.gif *.jpg *.jpeg *.tif *.pdf *.rtf *.doc *.txt *.htm *.html);;All files (*)</source>
        <translation>दस्तावेज़ (*.bmp *.gif *.jpg *.jpeg *.tif *.pdf *.rtf *.doc *.txt *.htm *.html);;सभी फ़ाइलें (*)</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::ClGrd</name>
    <message>
        <source>Code</source>
        <translation>कोड</translation>
    </message>
    <message>
        <source>Code or name begins with ...</source>
        <translation>कोड या नाम इससे शुरू होता है ...</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>खोजें (&amp;S)</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::DateBox</name>
    <message>
        <source>dd/mm/yyyy</source>
        <translation>dd/mm/yyyy</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::EditWatch</name>
    <message>
        <source>%1 changed this record on %2 at %3. Saving shows what differs.</source>
        <translation>%1 ने %2 पर %3 को यह रिकॉर्ड बदला। सहेजने पर अंतर दिखेगा।</translation>
    </message>
    <message>
        <source>%1 changed many records on %2 at %3, this one perhaps among them. Saving shows what differs.</source>
        <translation>%1 ने %2 पर %3 को बहुत से रिकॉर्ड बदले, शायद यह भी। सहेजने पर अंतर दिखेगा।</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::GridDelegate</name>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::GridModel</name>
    <message>
        <source>Ticked</source>
        <translation>चुना हुआ</translation>
    </message>
    <message>
        <source>Not ticked</source>
        <translation>चुना नहीं है</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::ListHeader</name>
    <message>
        <source>Filter of %1</source>
        <translation>%1 का फ़िल्टर</translation>
    </message>
    <message>
        <source>Filter the list (F3)</source>
        <translation>सूची छाँटें (F3)</translation>
    </message>
    <message>
        <source>Columns as They Were at First</source>
        <translation>स्तंभ पहले जैसे</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>इस पर क्रमबद्ध करें</translation>
    </message>
    <message>
        <source>Columns Shown</source>
        <translation>दिखने वाले स्तंभ</translation>
    </message>
    <message>
        <source>Move a Column</source>
        <translation>स्तंभ खिसकाएँ</translation>
    </message>
    <message>
        <source>%1 to the Left</source>
        <translation>%1 बाईं ओर</translation>
    </message>
    <message>
        <source>%1 to the Right</source>
        <translation>%1 दाईं ओर</translation>
    </message>
</context>
<context>
    <name>quorvane::controls::RecordWindow</name>
    <message>
        <source>&amp;Add</source>
        <translation>जोड़ें (&amp;A)</translation>
    </message>
    <message>
        <source>Modif&amp;y</source>
        <translation>बदलें (&amp;Y)</translation>
    </message>
    <message>
        <source>U&amp;pdate</source>
        <translation>सहेजें (&amp;P)</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>रद्द करें (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>हटाएँ (&amp;D)</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>विवरण</translation>
    </message>
    <message>
        <source>List</source>
        <translation>सूची</translation>
    </message>
    <message>
        <source>Alt+%1</source>
        <translation>Alt+%1</translation>
    </message>
    <message>
        <source>Are You Sure, You want to Delete this Record?</source>
        <translation>क्या आप सचमुच यह रिकॉर्ड हटाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>The record is not saved. Close without saving it?</source>
        <translation>रिकॉर्ड सहेजा नहीं गया है। क्या बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>The record is not saved. Give up what was entered?</source>
        <translation>रिकॉर्ड सहेजा नहीं गया है। क्या दर्ज किया हुआ छोड़ दें?</translation>
    </message>
    <message>
        <source>Another record is under entry here. Save it or cancel it first.</source>
        <translation>यहाँ दूसरा रिकॉर्ड दर्ज किया जा रहा है। पहले उसे सहेजें या रद्द करें।</translation>
    </message>
    <message>
        <source>No record is here yet. Add (Ctrl+N) begins the first.</source>
        <translation>अभी कोई रिकॉर्ड नहीं है। &quot;जोड़ें&quot; (Ctrl+N) पहला रिकॉर्ड शुरू करता है।</translation>
    </message>
    <message>
        <source>No record is here yet.</source>
        <translation>अभी कोई रिकॉर्ड नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::corporate_actions::ActionFields</name>
    <message>
        <source>&amp;Kind</source>
        <translation>प्रकार (&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Script</source>
        <translation>शेयर (&amp;S)</translation>
    </message>
    <message>
        <source>E&amp;x-Date</source>
        <translation>एक्स-डेट (&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Record Date</source>
        <translation>रिकॉर्ड तारीख़ (&amp;R)</translation>
    </message>
    <message>
        <source>Ne&amp;w Shares</source>
        <translation>नए शेयर (&amp;W)</translation>
    </message>
    <message>
        <source>for Shares &amp;Held</source>
        <translation>रखे हुए शेयरों पर (&amp;H)</translation>
    </message>
    <message>
        <source>&amp;To Script</source>
        <translation>नया शेयर (&amp;T)</translation>
    </message>
    <message>
        <source>Pr&amp;ice per Share</source>
        <translation>प्रति शेयर मूल्य (&amp;I)</translation>
    </message>
    <message>
        <source>Cost Mo&amp;ved (%)</source>
        <translation>स्थानांतरित लागत (%) (&amp;V)</translation>
    </message>
    <message>
        <source>A&amp;llotment Date</source>
        <translation>आवंटन तारीख़ (&amp;L)</translation>
    </message>
    <message>
        <source>N&amp;ote</source>
        <translation>टिप्पणी (&amp;O)</translation>
    </message>
    <message>
        <source>paid for a part of a share</source>
        <translation>शेयर के अंश के लिए मिला</translation>
    </message>
</context>
<context>
    <name>quorvane::corporate_actions::FrmCorpAction</name>
    <message>
        <source>Corporate Actions</source>
        <translation>कॉरपोरेट एक्शन</translation>
    </message>
    <message>
        <source>What the action makes of every account</source>
        <translation>एक्शन का हर खाते पर असर</translation>
    </message>
    <message>
        <source>Accounts</source>
        <translation>खाते</translation>
    </message>
    <message>
        <source>Previe&amp;w</source>
        <translation>पूर्वावलोकन (&amp;W)</translation>
    </message>
    <message>
        <source>Shows what the action makes of every account; nothing is changed</source>
        <translation>दिखाता है कि एक्शन का हर खाते पर क्या असर है; कुछ बदला नहीं जाता</translation>
    </message>
    <message>
        <source>Apply to &amp;Holdings</source>
        <translation>होल्डिंग पर लागू करें (&amp;H)</translation>
    </message>
    <message>
        <source>Changes the holdings of every account shown</source>
        <translation>दिखाए गए हर खाते की होल्डिंग बदलता है</translation>
    </message>
    <message>
        <source>Ta&amp;ke Back</source>
        <translation>वापस लें (&amp;K)</translation>
    </message>
    <message>
        <source>Makes the holdings as they were before the action</source>
        <translation>होल्डिंग को एक्शन से पहले जैसा करता है</translation>
    </message>
    <message>
        <source>Reads the corporate actions of an exchange&apos;s list</source>
        <translation>एक्सचेंज की सूची से कॉरपोरेट एक्शन पढ़ता है</translation>
    </message>
    <message>
        <source>Ex-Date</source>
        <translation>एक्स-डेट</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>एक्शन</translation>
    </message>
    <message>
        <source>To Script</source>
        <translation>नया शेयर</translation>
    </message>
    <message>
        <source>Applied</source>
        <translation>लागू</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
    <message>
        <source>Select the Kind of Action.</source>
        <translation>एक्शन का प्रकार चुनें।</translation>
    </message>
    <message>
        <source>Preview shows what the chosen action makes of every account.</source>
        <translation>पूर्वावलोकन दिखाता है कि चुने एक्शन का हर खाते पर क्या असर है।</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Shares Before</source>
        <translation>पहले शेयर</translation>
    </message>
    <message>
        <source>Given</source>
        <translation>दिए</translation>
    </message>
    <message>
        <source>Subscribed</source>
        <translation>अभिदत्त</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>प्राप्त</translation>
    </message>
    <message>
        <source>Shares After</source>
        <translation>बाद में शेयर</translation>
    </message>
    <message>
        <source>Fraction</source>
        <translation>अंश</translation>
    </message>
    <message>
        <source>Paid for It</source>
        <translation>उसका भुगतान</translation>
    </message>
    <message>
        <source>Cost</source>
        <translation>लागत</translation>
    </message>
    <message>
        <source>Cost Moved</source>
        <translation>स्थानांतरित लागत</translation>
    </message>
    <message>
        <source>%1 of %2, Ex-Date %3. Accounts that hold the shares: %4.</source>
        <translation>%2 का %1, एक्स-डेट %3। शेयर रखने वाले खाते: %4।</translation>
    </message>
    <message>
        <source>The books were changed since it was applied: take it back and apply it again.</source>
        <translation>लागू करने के बाद बहियाँ बदली गईं: इसे वापस लें और फिर लागू करें।</translation>
    </message>
    <message>
        <source>It is applied.</source>
        <translation>यह लागू है।</translation>
    </message>
    <message>
        <source>Apply %1 to the Holdings of %2 Accounts?</source>
        <translation>%2 खातों की होल्डिंग पर %1 लागू करें?</translation>
    </message>
    <message>
        <source>Applied to %1 Accounts. Carry the Stock Forward again where a Later Year was Opened already.</source>
        <translation>%1 खातों पर लागू। जहाँ अगला वर्ष खुल चुका है, वहाँ स्टॉक फिर से आगे ले जाएँ।</translation>
    </message>
    <message>
        <source>Take back %1 of %2?</source>
        <translation>%2 का %1 वापस लें?</translation>
    </message>
    <message>
        <source>Dividend</source>
        <translation>लाभांश</translation>
    </message>
    <message>
        <source>Compares holdings with a depository&apos;s statement, which suggests actions that are missing</source>
        <translation>होल्डिंग का डिपॉज़िटरी के विवरण से मिलान करता है, जिससे छूटी हुई कार्रवाइयों का संकेत मिलता है</translation>
    </message>
    <message>
        <source>From &amp;File...</source>
        <translation>फ़ाइल से (&amp;F)...</translation>
    </message>
    <message>
        <source>From State&amp;ment...</source>
        <translation>विवरण से (&amp;M)...</translation>
    </message>
</context>
<context>
    <name>quorvane::corporate_actions::ImpCorpAction</name>
    <message>
        <source>Corporate Actions from a File</source>
        <translation>फ़ाइल से कॉरपोरेट एक्शन</translation>
    </message>
    <message>
        <source>Choose a list of corporate actions of an exchange, or a corporate_actions.csv.</source>
        <translation>एक्सचेंज की कॉरपोरेट एक्शन सूची या corporate_actions.csv चुनें।</translation>
    </message>
    <message>
        <source>Only Scripts that Somebody &amp;Holds or Held</source>
        <translation>केवल वे शेयर जो किसी के पास हैं या थे (&amp;H)</translation>
    </message>
    <message>
        <source>Corporate actions in the file</source>
        <translation>फ़ाइल के कॉरपोरेट एक्शन</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Ex-Date</source>
        <translation>एक्स-डेट</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>एक्शन</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>As Written</source>
        <translation>जैसा लिखा है</translation>
    </message>
    <message>
        <source>Open Points</source>
        <translation>अधूरी बातें</translation>
    </message>
    <message>
        <source>&amp;Record Ticked</source>
        <translation>चुने हुए दर्ज करें (&amp;R)</translation>
    </message>
    <message>
        <source>Record and &amp;Apply Ticked</source>
        <translation>चुने हुए दर्ज और लागू करें (&amp;A)</translation>
    </message>
    <message>
        <source>Lists (*.csv *.json *.xlsx *.xls *.ods *.zip);;All Files (*)</source>
        <translation>सूचियाँ (*.csv *.json *.xlsx *.xls *.ods *.zip);;सभी फ़ाइलें (*)</translation>
    </message>
    <message>
        <source>%1: %2 actions, %3 of them ready to be recorded. %4 rows mean nothing for shares.</source>
        <translation>%1: %2 एक्शन, इनमें से %3 दर्ज करने योग्य। %4 पंक्तियों का शेयरों पर कोई असर नहीं।</translation>
    </message>
    <message>
        <source>Tick an Action without Open Points.</source>
        <translation>बिना अधूरी बात वाला एक्शन चुनें।</translation>
    </message>
    <message>
        <source>%1 Actions are Recorded. They are Applied in the Window of the Corporate Actions.</source>
        <translation>%1 एक्शन दर्ज हुए। वे कॉरपोरेट एक्शन की विंडो में लागू किए जाते हैं।</translation>
    </message>
    <message>
        <source>%1 Actions are Recorded and Applied.</source>
        <translation>%1 एक्शन दर्ज और लागू हुए।</translation>
    </message>
    <message>
        <source>From &amp;File...</source>
        <translation>फ़ाइल से (&amp;F)...</translation>
    </message>
</context>
<context>
    <name>quorvane::demat::RptDMatStatement</name>
    <message>
        <source>Transaction Report</source>
        <translation>लेनदेन रिपोर्ट</translation>
    </message>
    <message>
        <source>Demat A/c Statement</source>
        <translation>डीमैट खाता विवरण</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Demat accounts</source>
        <translation>डीमैट खाते</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>ख़ाका</translation>
    </message>
    <message>
        <source>Summarized</source>
        <translation>संक्षिप्त</translation>
    </message>
    <message>
        <source>Detailed</source>
        <translation>विस्तृत</translation>
    </message>
    <message>
        <source>One line a bill, scrip and side</source>
        <translation>हर बिल, शेयर और पक्ष की एक पंक्ति</translation>
    </message>
    <message>
        <source>Every line of every bill</source>
        <translation>हर बिल की हर पंक्ति</translation>
    </message>
    <message>
        <source>Demat A/c</source>
        <translation>डीमैट खाता</translation>
    </message>
    <message>
        <source>Demat A/c Wise</source>
        <translation>डीमैट खाते के अनुसार</translation>
    </message>
    <message>
        <source>All Demat A/c</source>
        <translation>सभी डीमैट खाते</translation>
    </message>
    <message>
        <source>The template %1 is not there.</source>
        <translation>साँचा %1 नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::dividends::FrmDividend</name>
    <message>
        <source>Dividends</source>
        <translation>लाभांश</translation>
    </message>
    <message>
        <source>&amp;Script Name</source>
        <translation>शेयर का नाम (&amp;S)</translation>
    </message>
    <message>
        <source>D&amp;emat A/c No.</source>
        <translation>डीमैट खाता सं. (&amp;E)</translation>
    </message>
    <message>
        <source>Da&amp;te</source>
        <translation>तारीख़ (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Quantity</source>
        <translation>मात्रा (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Rs a Share</source>
        <translation>रु. प्रति शेयर (&amp;R)</translation>
    </message>
    <message>
        <source>Ta&amp;x Deducted</source>
        <translation>काटा गया कर (&amp;X)</translation>
    </message>
    <message>
        <source>Dividend</source>
        <translation>लाभांश</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rs a Share</source>
        <translation>रु. प्रति शेयर</translation>
    </message>
    <message>
        <source>Tax Deducted</source>
        <translation>काटा गया कर</translation>
    </message>
    <message>
        <source>Corporate Action</source>
        <translation>कॉरपोरेट एक्शन</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
</context>
<context>
    <name>quorvane::dividends::RptDividends</name>
    <message>
        <source>Dividend Report</source>
        <translation>लाभांश रिपोर्ट</translation>
    </message>
</context>
<context>
    <name>quorvane::documents::DocumentPageView</name>
    <message>
        <source>Page of the document</source>
        <translation>दस्तावेज़ का पृष्ठ</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>पृष्ठ %1 / %2</translation>
    </message>
    <message>
        <source>&amp;Copy the Text of the Page</source>
        <translation>पृष्ठ का पाठ कॉपी करें (&amp;C)</translation>
    </message>
</context>
<context>
    <name>quorvane::documents::DocumentViewer</name>
    <message>
        <source>This is a Folder, not a Document.</source>
        <translation>यह फ़ोल्डर है, दस्तावेज़ नहीं।</translation>
    </message>
    <message>
        <source>The Document is too Large to be Shown.</source>
        <translation>दस्तावेज़ दिखाने के लिए बहुत बड़ा है।</translation>
    </message>
    <message>
        <source>The Document has no such Page.</source>
        <translation>दस्तावेज़ में ऐसा कोई पृष्ठ नहीं है।</translation>
    </message>
    <message>
        <source>Previous Pa&amp;ge</source>
        <translation>पिछला पृष्ठ (&amp;G)</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>अगला पृष्ठ</translation>
    </message>
    <message>
        <source>The document is being read ...</source>
        <translation>दस्तावेज़ पढ़ा जा रहा है ...</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>पृष्ठ %1 / %2</translation>
    </message>
    <message>
        <source>The Printer can&apos;t be Used.</source>
        <translation>प्रिंटर का उपयोग नहीं हो सकता।</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>छपाई हो रही है</translation>
    </message>
    <message>
        <source>The Document can&apos;t be Read: %1</source>
        <translation>दस्तावेज़ पढ़ा नहीं जा सकता: %1</translation>
    </message>
    <message>
        <source>The Document is Broken.</source>
        <translation>दस्तावेज़ ख़राब है।</translation>
    </message>
</context>
<context>
    <name>quorvane::documents::FrmSign</name>
    <message>
        <source>Background</source>
        <translation>पृष्ठभूमि</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>घुमाएँ (&amp;R)</translation>
    </message>
    <message>
        <source>Actual &amp;Size</source>
        <translation>असली आकार (&amp;S)</translation>
    </message>
    <message>
        <source>Prin&amp;t...</source>
        <translation>छापें (&amp;T)...</translation>
    </message>
    <message>
        <source>&amp;Background...</source>
        <translation>पृष्ठभूमि (&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>विंडो में फ़िट करें (&amp;F)</translation>
    </message>
</context>
<context>
    <name>quorvane::documents::frmdocuments</name>
    <message>
        <source>Documents</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>Documents of the clients</source>
        <translation>ग्राहकों के दस्तावेज़</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>कोड</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>Kept on</source>
        <translation>रखने की तारीख़</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>आकार</translation>
    </message>
    <message>
        <source>&amp;Open with the Desktop</source>
        <translation>डेस्कटॉप से खोलें (&amp;O)</translation>
    </message>
    <message>
        <source>Re&amp;fresh</source>
        <translation>ताज़ा करें (&amp;F)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>मौजूद नहीं</translation>
    </message>
    <message>
        <source>No client has a document.</source>
        <translation>किसी ग्राहक का दस्तावेज़ नहीं है।</translation>
    </message>
    <message>
        <source>Choose a document.</source>
        <translation>दस्तावेज़ चुनें।</translation>
    </message>
    <message>
        <source>The desktop has no program for this document.</source>
        <translation>इस दस्तावेज़ के लिए डेस्कटॉप में कोई प्रोग्राम नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::fair_values::FrmFairValue</name>
    <message>
        <source>Fair Values of 31-Jan-2018</source>
        <translation>31 जनवरी 2018 के उचित मूल्य</translation>
    </message>
    <message>
        <source>Highest prices of 31-Jan-2018</source>
        <translation>31 जनवरी 2018 के उच्चतम भाव</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>सहेजें (&amp;U)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>A daily price file of 31-Jan-2018 of the Bombay or the National exchange: of each scrip the higher price counts</source>
        <translation>बॉम्बे या नेशनल एक्सचेंज की 31 जनवरी 2018 की दैनिक भाव फ़ाइल: हर शेयर का ऊँचा भाव गिना जाता है</translation>
    </message>
    <message>
        <source>Scrips acquired up to that day</source>
        <translation>उस दिन तक लिए गए शेयर</translation>
    </message>
    <message>
        <source>Of these, without a value</source>
        <translation>इनमें से बिना मूल्य वाले</translation>
    </message>
    <message>
        <source>All scrips</source>
        <translation>सभी शेयर</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>दिखाएँ (&amp;S)</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>कोड</translation>
    </message>
    <message>
        <source>Ncode</source>
        <translation>दूसरा कोड</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Held Then</source>
        <translation>तब थे</translation>
    </message>
    <message>
        <source>Stored Rate</source>
        <translation>सहेजा हुआ भाव</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Files of the exchanges (*.csv *.CSV *.zip *.xls *.xlsx *.ods)</source>
        <translation>एक्सचेंजों की फ़ाइलें (*.csv *.CSV *.zip *.xls *.xlsx *.ods)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>सभी फ़ाइलें (*)</translation>
    </message>
    <message>
        <source>The file %1 does not tell its day. Are its prices of %2?</source>
        <translation>फ़ाइल %1 अपना दिन नहीं बताती। क्या उसके भाव %2 के हैं?</translation>
    </message>
    <message>
        <source>%1 values are new, %2 are higher than before, %3 stay. %4 rows of the file belong to no scrip. Nothing is saved before Update.</source>
        <translation>%1 मूल्य नए हैं, %2 पहले से ऊँचे हैं, %3 वही रहे। फ़ाइल की %4 पंक्तियाँ किसी शेयर की नहीं हैं। &apos;सहेजें&apos; से पहले कुछ नहीं सहेजा जाता।</translation>
    </message>
    <message>
        <source>No shares are recorded that were acquired up to %1. Choose All scrips to enter values for later.</source>
        <translation>%1 तक लिए गए कोई शेयर दर्ज नहीं हैं। आगे के लिए मूल्य भरने हों तो &apos;सभी शेयर&apos; चुनें।</translation>
    </message>
    <message>
        <source>%1 of the %2 scrips that were acquired up to %3 have a value: the highest price quoted on that day, in rupees a share.</source>
        <translation>%3 तक लिए गए %2 शेयरों में से %1 के मूल्य हैं: उस दिन का उच्चतम भाव, रुपये प्रति शेयर।</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>Update Successfully!</source>
        <translation>सफलतापूर्वक सहेजा गया!</translation>
    </message>
    <message>
        <source>The values are not saved. Close without saving them?</source>
        <translation>मूल्य सहेजे नहीं गए हैं। क्या बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>Take from &amp;File...</source>
        <translation>फ़ाइल से लें (&amp;F)...</translation>
    </message>
</context>
<context>
    <name>quorvane::home::FrmFigures</name>
    <message>
        <source>Gains of the Year</source>
        <translation>वर्ष का लाभ</translation>
    </message>
    <message>
        <source>Holdings of Today</source>
        <translation>आज की होल्डिंग</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>खोलें (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>पीछे (&amp;B)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Family</source>
        <translation>परिवार (&amp;F)</translation>
    </message>
    <message>
        <source>Financial &amp;Year</source>
        <translation>वित्तीय वर्ष (&amp;Y)</translation>
    </message>
    <message>
        <source>Scrips</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Li&amp;st</source>
        <translation>सूची (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Without a rate of the last seven days</source>
        <translation>पिछले सात दिनों के भाव के बिना (&amp;W)</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Long Term</source>
        <translation>दीर्घकालिक</translation>
    </message>
    <message>
        <source>Short Term</source>
        <translation>अल्पकालिक</translation>
    </message>
    <message>
        <source>Speculation</source>
        <translation>सट्टा</translation>
    </message>
    <message>
        <source>Together</source>
        <translation>कुल</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Rate of</source>
        <translation>भाव का दिन</translation>
    </message>
    <message>
        <source>Cost</source>
        <translation>लागत</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मूल्य</translation>
    </message>
    <message>
        <source>Day&apos;s Change</source>
        <translation>दिन का बदलाव</translation>
    </message>
    <message>
        <source>Who Holds %1</source>
        <translation>%1 किसके पास</translation>
    </message>
    <message>
        <source>Holdings of %1</source>
        <translation>%1 की होल्डिंग</translation>
    </message>
    <message>
        <source>Nothing was gained by sales of that year.</source>
        <translation>उस वर्ष की बिक्री से कोई लाभ नहीं।</translation>
    </message>
    <message>
        <source>Nothing is held.</source>
        <translation>कोई होल्डिंग नहीं है।</translation>
    </message>
    <message>
        <source>Long term %1, short term %2, speculation %3, together %4</source>
        <translation>दीर्घकालिक %1, अल्पकालिक %2, सट्टा %3, कुल %4</translation>
    </message>
    <message>
        <source>Cost %1, value %2, day&apos;s change %3</source>
        <translation>लागत %1, मान %2, दिन का बदलाव %3</translation>
    </message>
</context>
<context>
    <name>quorvane::home::FrmStatements</name>
    <message>
        <source>Demat Accounts and Statements</source>
        <translation>डीमैट खाते और विवरण</translation>
    </message>
    <message>
        <source>&amp;Compare</source>
        <translation>तुलना करें (&amp;C)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Demat A/c</source>
        <translation>डीमैट खाता</translation>
    </message>
    <message>
        <source>Statement of</source>
        <translation>विवरण का दिन</translation>
    </message>
    <message>
        <source>Compared On</source>
        <translation>तुलना की तारीख</translation>
    </message>
    <message>
        <source>Holdings</source>
        <translation>होल्डिंग</translation>
    </message>
    <message>
        <source>Do Not Agree</source>
        <translation>नहीं मिलतीं</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>&amp;Family</source>
        <translation>परिवार (&amp;F)</translation>
    </message>
    <message>
        <source>Li&amp;st</source>
        <translation>सूची (&amp;S)</translation>
    </message>
    <message>
        <source>All accounts</source>
        <translation>सभी खाते</translation>
    </message>
</context>
<context>
    <name>quorvane::home::HomePane</name>
    <message>
        <source>Family</source>
        <translation>परिवार</translation>
    </message>
    <message>
        <source>Gains of</source>
        <translation>लाभ का वर्ष</translation>
    </message>
    <message>
        <source>Year of the gains</source>
        <translation>लाभ का वर्ष</translation>
    </message>
    <message>
        <source>Enter or a double click opens what the line is made of.</source>
        <translation>Enter या दो बार क्लिक करने से खुलता है कि पंक्ति किससे बनी है।</translation>
    </message>
    <message>
        <source>Value and Gains</source>
        <translation>मूल्य और लाभ</translation>
    </message>
    <message>
        <source>Figure</source>
        <translation>आँकड़ा</translation>
    </message>
    <message>
        <source>Rupees</source>
        <translation>रुपये</translation>
    </message>
    <message>
        <source>Of</source>
        <translation>किसका</translation>
    </message>
    <message>
        <source>Largest Holdings</source>
        <translation>सबसे बड़ी होल्डिंग</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मूल्य</translation>
    </message>
    <message>
        <source>Day&apos;s Change</source>
        <translation>दिन का बदलाव</translation>
    </message>
    <message>
        <source>What Is Missing</source>
        <translation>क्या छूटा है</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>छूटा हुआ</translation>
    </message>
    <message>
        <source>Dividends to Come</source>
        <translation>आने वाले लाभांश</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>दिन</translation>
    </message>
    <message>
        <source>A Share</source>
        <translation>प्रति शेयर</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>राशि</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Last Records Entered</source>
        <translation>पिछले दर्ज रिकॉर्ड</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>रिकॉर्ड</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>About</source>
        <translation>विवरण</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Nothing that is held has a rate.</source>
        <translation>किसी होल्डिंग का भाव नहीं है।</translation>
    </message>
    <message>
        <source>%1 scrips held have no rate of the last seven days.</source>
        <translation>होल्डिंग के %1 शेयरों का पिछले सात दिनों का भाव नहीं है।</translation>
    </message>
    <message>
        <source>There is no backup.</source>
        <translation>कोई बैकअप नहीं है।</translation>
    </message>
    <message>
        <source>The newest backup is %1 days old.</source>
        <translation>सबसे नया बैकअप %1 दिन पुराना है।</translation>
    </message>
    <message>
        <source>Nothing is missing.</source>
        <translation>कुछ छूटा नहीं है।</translation>
    </message>
    <message>
        <source>Nothing is entered yet.</source>
        <translation>अभी कुछ दर्ज नहीं है।</translation>
    </message>
    <message>
        <source>None to come.</source>
        <translation>कोई नहीं।</translation>
    </message>
</context>
<context>
    <name>quorvane::imports::ImpScrMaster</name>
    <message>
        <source>New</source>
        <translation>नया</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>बदला हुआ</translation>
    </message>
    <message>
        <source>Unchanged</source>
        <translation>अपरिवर्तित</translation>
    </message>
    <message>
        <source>Import Script Master</source>
        <translation>शेयर मास्टर आयात</translation>
    </message>
    <message>
        <source>Scrips in the file</source>
        <translation>फ़ाइल के शेयर</translation>
    </message>
    <message>
        <source>A scrip list or a daily price file: .xls, .xlsx, .ods, .csv or .zip</source>
        <translation>शेयर सूची या दैनिक भाव फ़ाइल: .xls, .xlsx, .ods, .csv या .zip</translation>
    </message>
    <message>
        <source>From the &amp;Exchange</source>
        <translation>एक्सचेंज से (&amp;E)</translation>
    </message>
    <message>
        <source>The Bombay exchange&apos;s newest daily price file</source>
        <translation>बंबई एक्सचेंज की सबसे नई दैनिक भाव फ़ाइल</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>All rows</source>
        <translation>सभी पंक्तियाँ</translation>
    </message>
    <message>
        <source>New scrips</source>
        <translation>नए शेयर</translation>
    </message>
    <message>
        <source>Changed scrips</source>
        <translation>बदले हुए शेयर</translation>
    </message>
    <message>
        <source>Unchanged scrips</source>
        <translation>अपरिवर्तित शेयर</translation>
    </message>
    <message>
        <source>Choose a file, or fetch the newest daily price file.</source>
        <translation>फ़ाइल चुनें, या सबसे नई दैनिक भाव फ़ाइल लाएँ।</translation>
    </message>
    <message>
        <source>Excel Files(*.xls *.xlsx *.ods);;Comma Saperted File(*.csv *.zip)</source>
        <translation>एक्सेल फ़ाइलें(*.xls *.xlsx *.ods);;अल्पविराम से अलग फ़ाइल(*.csv *.zip)</translation>
    </message>
    <message>
        <source>Select .XLS or .CSV File.</source>
        <translation>.XLS या .CSV फ़ाइल चुनें।</translation>
    </message>
    <message>
        <source>Successfully Completed.Please Update Record</source>
        <translation>सफलतापूर्वक पूरा हुआ। कृपया रिकॉर्ड सहेजें</translation>
    </message>
    <message>
        <source>%1 scrips: %2 new, %3 changed, %4 unchanged.</source>
        <translation>%1 शेयर: %2 नए, %3 बदले हुए, %4 अपरिवर्तित।</translation>
    </message>
    <message>
        <source> %1 rows of other series or markets are left out.</source>
        <translation> दूसरी श्रृंखलाओं या बाज़ारों की %1 पंक्तियाँ छोड़ दी गईं।</translation>
    </message>
    <message>
        <source>Update Successfully!</source>
        <translation>सफलतापूर्वक सहेजा गया!</translation>
    </message>
    <message>
        <source>The scrips are not saved. Close without saving them?</source>
        <translation>शेयर सहेजे नहीं गए हैं। क्या बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>From &amp;File...</source>
        <translation>फ़ाइल से (&amp;F)...</translation>
    </message>
</context>
<context>
    <name>quorvane::imports::ImpScrRate</name>
    <message>
        <source>Import Script Market Rate</source>
        <translation>शेयर बाज़ार भाव आयात</translation>
    </message>
    <message>
        <source>Rates of the scrips</source>
        <translation>शेयरों के भाव</translation>
    </message>
    <message>
        <source>Rows of the file without a scrip</source>
        <translation>फ़ाइल की बिना शेयर वाली पंक्तियाँ</translation>
    </message>
    <message>
        <source>All scrips</source>
        <translation>सभी शेयर</translation>
    </message>
    <message>
        <source>Scrips in the file</source>
        <translation>फ़ाइल के शेयर</translation>
    </message>
    <message>
        <source>Scrips without a rate</source>
        <translation>बिना भाव के शेयर</translation>
    </message>
    <message>
        <source>Rows without a scrip</source>
        <translation>बिना शेयर की पंक्तियाँ</translation>
    </message>
    <message>
        <source>Exchange of the archive</source>
        <translation>संग्रह का एक्सचेंज</translation>
    </message>
    <message>
        <source>&amp;Date</source>
        <translation>तारीख़ (&amp;D)</translation>
    </message>
    <message>
        <source>A daily price file of an exchange: .csv, .xls, .xlsx, .ods or .zip</source>
        <translation>एक्सचेंज की दैनिक भाव फ़ाइल: .csv, .xls, .xlsx, .ods या .zip</translation>
    </message>
    <message>
        <source>From the &amp;Archive</source>
        <translation>संग्रह से (&amp;A)</translation>
    </message>
    <message>
        <source>The daily price file of the date</source>
        <translation>उस तारीख़ की दैनिक भाव फ़ाइल</translation>
    </message>
    <message>
        <source>&amp;Gainers and Losers</source>
        <translation>चढ़ने और गिरने वाले (&amp;G)</translation>
    </message>
    <message>
        <source>The newest prices of the scrips that moved most at the Bombay exchange</source>
        <translation>बंबई एक्सचेंज में जिन शेयरों के भाव सबसे अधिक बदले, उनके सबसे नए भाव</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>कोड</translation>
    </message>
    <message>
        <source>Ncode</source>
        <translation>दूसरा कोड</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Stored Rate</source>
        <translation>सहेजा हुआ भाव</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>पंक्ति</translation>
    </message>
    <message>
        <source>The rates are not saved. Give them up?</source>
        <translation>भाव सहेजे नहीं गए हैं। क्या उन्हें छोड़ दें?</translation>
    </message>
    <message>
        <source>Excel Files(*.csv *.CSV *.zip *.xls *.xlsx *.ods)</source>
        <translation>एक्सेल फ़ाइलें(*.csv *.CSV *.zip *.xls *.xlsx *.ods)</translation>
    </message>
    <message>
        <source>The pages show the newest prices. Take them as rates of %1?</source>
        <translation>पृष्ठ सबसे नए भाव दिखाते हैं। क्या उन्हें %1 के भाव मानें?</translation>
    </message>
    <message>
        <source>Completed.</source>
        <translation>पूरा हुआ।</translation>
    </message>
    <message>
        <source>%1 of %2 scrips have a rate.</source>
        <translation>%2 में से %1 शेयरों के भाव हैं।</translation>
    </message>
    <message>
        <source>Enter the date of the rates.</source>
        <translation>भावों की तारीख़ भरें।</translation>
    </message>
    <message>
        <source> Rows of the file: %1 matched, %2 without a scrip.</source>
        <translation> फ़ाइल की पंक्तियाँ: %1 मिलीं, %2 बिना शेयर की।</translation>
    </message>
    <message>
        <source>Update Successfully!</source>
        <translation>सफलतापूर्वक सहेजा गया!</translation>
    </message>
    <message>
        <source>The rates are not saved. Close without saving them?</source>
        <translation>भाव सहेजे नहीं गए हैं। क्या बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>From &amp;File...</source>
        <translation>फ़ाइल से (&amp;F)...</translation>
    </message>
</context>
<context>
    <name>quorvane::imports::ImpScrWindow</name>
    <message>
        <source>&amp;Update</source>
        <translation>सहेजें (&amp;U)</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>रद्द करें (&amp;N)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>डाउनलोड</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>दिखाएँ (&amp;S)</translation>
    </message>
    <message>
        <source>Files of the exchanges (*.csv *.zip *.xls *.xlsx *.ods)</source>
        <translation>एक्सचेंजों की फ़ाइलें (*.csv *.zip *.xls *.xlsx *.ods)</translation>
    </message>
</context>
<context>
    <name>quorvane::lookup_masters::FrmLookup</name>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>&amp;Brokerage and Tax Percentages...</source>
        <translation>दलाली और कर प्रतिशत (&amp;B)...</translation>
    </message>
    <message>
        <source>No rate is missing.</source>
        <translation>कोई दर छूटी नहीं है।</translation>
    </message>
    <message>
        <source>%1 rates were added.</source>
        <translation>%1 दरें जोड़ी गईं।</translation>
    </message>
    <message>
        <source>%1 %2: %3 from %4, the rate of most days of the year.</source>
        <translation>%1 %2: %4 से %3, वर्ष के अधिकतर दिनों की दर।</translation>
    </message>
    <message>
        <source>Dated &amp;Rates...</source>
        <translation>तारीख़ वाली दरें (&amp;R)...</translation>
    </message>
    <message>
        <source>Adds the rates of S.T.T. and service tax that are missing</source>
        <translation>एस.टी.टी. और सेवा कर की छूटी हुई दरें जोड़ता है</translation>
    </message>
    <message>
        <source>Add the rates of S.T.T. and service tax that are missing? Rows that exist stay as they are.</source>
        <translation>क्या एस.टी.टी. और सेवा कर की छूटी हुई दरें जोड़ें? मौजूद पंक्तियाँ जैसी हैं वैसी रहेंगी।</translation>
    </message>
</context>
<context>
    <name>quorvane::masters::FrmContact</name>
    <message>
        <source>Na&amp;me</source>
        <translation>नाम (&amp;M)</translation>
    </message>
    <message>
        <source>Addre&amp;ss</source>
        <translation>पता (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;City</source>
        <translation>शहर (&amp;C)</translation>
    </message>
    <message>
        <source>Stat&amp;e</source>
        <translation>राज्य (&amp;E)</translation>
    </message>
    <message>
        <source>P&amp;IN</source>
        <translation>पिन (&amp;I)</translation>
    </message>
    <message>
        <source>S&amp;TD Code</source>
        <translation>एसटीडी कोड (&amp;T)</translation>
    </message>
    <message>
        <source>P&amp;hone</source>
        <translation>फ़ोन (&amp;H)</translation>
    </message>
    <message>
        <source>Mo&amp;bile</source>
        <translation>मोबाइल (&amp;B)</translation>
    </message>
    <message>
        <source>Fa&amp;x</source>
        <translation>फ़ैक्स (&amp;X)</translation>
    </message>
    <message>
        <source>E-Mai&amp;l</source>
        <translation>ई-मेल (&amp;L)</translation>
    </message>
</context>
<context>
    <name>quorvane::mis::RateList</name>
    <message>
        <source>Rates of the date</source>
        <translation>तारीख़ के भाव</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Ncode</source>
        <translation>दूसरा कोड</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>ScrCls</source>
        <translation>श्रेणी</translation>
    </message>
</context>
<context>
    <name>quorvane::mis::RatesPane</name>
    <message>
        <source>Dates</source>
        <translation>तारीख़ें</translation>
    </message>
    <message>
        <source>Market Rates</source>
        <translation>बाज़ार भाव</translation>
    </message>
    <message>
        <source>Dates with rates</source>
        <translation>भाव वाली तारीख़ें</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>जोड़ें</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>बदलें</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>हटाएँ</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>आयात</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>सहेजें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Rate date</source>
        <translation>भाव की तारीख़</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Update Successfully!</source>
        <translation>सफलतापूर्वक सहेजा गया!</translation>
    </message>
    <message>
        <source>Are You Sure, You want to Delete All Records of this Date?</source>
        <translation>क्या आप सचमुच इस तारीख़ के सभी रिकॉर्ड हटाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Excel Files</source>
        <translation>एक्सेल फ़ाइलें</translation>
    </message>
    <message>
        <source>%1 rates were read; %2 lines of the file belong to no script. Press Update to keep them.</source>
        <translation>%1 भाव पढ़े गए; फ़ाइल की %2 पंक्तियाँ किसी शेयर की नहीं हैं। भाव रखने के लिए &quot;सहेजें&quot; दबाएँ।</translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation>लाएँ</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>The closing prices of the chosen scripts, from the exchange</source>
        <translation>चुनी हुई स्क्रिपों के बंद भाव, एक्सचेंज से</translation>
    </message>
    <message>
        <source>Select Script Name!</source>
        <translation>स्क्रिप का नाम चुनें!</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>रोकें</translation>
    </message>
    <message>
        <source>%1 rates were fetched; of %2 scripts none was found. Press Update to keep them.</source>
        <translation>%1 भाव प्राप्त हुए; %2 शेयरों का कोई भाव नहीं मिला। भाव रखने के लिए &quot;सहेजें&quot; दबाएँ।</translation>
    </message>
</context>
<context>
    <name>quorvane::mis::RptVariousReport</name>
    <message>
        <source>MIS Report:</source>
        <translation>एमआईएस रिपोर्ट:</translation>
    </message>
    <message>
        <source>Financial Year</source>
        <translation>वित्तीय वर्ष</translation>
    </message>
    <message>
        <source>De&amp;tail</source>
        <translation>विस्तृत (&amp;T)</translation>
    </message>
    <message>
        <source>C&amp;onsolidated</source>
        <translation>समेकित (&amp;O)</translation>
    </message>
    <message>
        <source>Extent</source>
        <translation>विस्तार</translation>
    </message>
    <message>
        <source>Rates as on</source>
        <translation>इस दिन के भाव</translation>
    </message>
    <message>
        <source>The day of a valuation and of its rates; empty: the period&apos;s last day</source>
        <translation>मूल्यांकन और उसके भावों का दिन; ख़ाली: अवधि का अंतिम दिन</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>पृष्ठ</translation>
    </message>
    <message>
        <source>Market Valuation</source>
        <translation>बाज़ार मूल्यांकन</translation>
    </message>
    <message>
        <source>Show the valuation as pages, to print and save</source>
        <translation>मूल्यांकन को छापने और सहेजने के लिए पृष्ठों में दिखाएँ</translation>
    </message>
    <message>
        <source>Port&amp;Folio Position Report</source>
        <translation>पोर्टफ़ोलियो स्थिति रिपोर्ट (&amp;F)</translation>
    </message>
    <message>
        <source>Portfolio &amp;Valuation Report</source>
        <translation>पोर्टफ़ोलियो मूल्यांकन रिपोर्ट (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Profit/Loss Report</source>
        <translation>लाभ/हानि रिपोर्ट (&amp;P)</translation>
    </message>
    <message>
        <source>Stock Valuation &amp;Report</source>
        <translation>स्टॉक मूल्यांकन रिपोर्ट (&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Script Wise</source>
        <translation>शेयर के अनुसार (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Demat A/c Wise</source>
        <translation>डीमैट खाते के अनुसार (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Client/Group Wise</source>
        <translation>ग्राहक/समूह के अनुसार (&amp;C)</translation>
    </message>
    <message>
        <source>Composition</source>
        <translation>संरचना</translation>
    </message>
    <message>
        <source>Value by month</source>
        <translation>महीने के अनुसार मूल्य</translation>
    </message>
    <message>
        <source>Gains by kind</source>
        <translation>प्रकार के अनुसार लाभ</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>चार्ट</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>आउटपुट</translation>
    </message>
    <message>
        <source>Enter Proper Date.</source>
        <translation>सही तारीख़ भरें।</translation>
    </message>
    <message>
        <source>No Record Found.</source>
        <translation>कोई रिकॉर्ड नहीं मिला।</translation>
    </message>
    <message>
        <source>The rates are not saved. Close without saving them?</source>
        <translation>भाव सहेजे नहीं गए हैं। क्या बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Choose how the report is grouped.</source>
        <translation>चुनें कि रिपोर्ट किस तरह समूहित हो।</translation>
    </message>
</context>
<context>
    <name>quorvane::mis::SelectionPane</name>
    <message>
        <source>&amp;Group Wise</source>
        <translation>समूह के अनुसार (&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Individual</source>
        <translation>व्यक्तिगत (&amp;I)</translation>
    </message>
    <message>
        <source>A group or single clients</source>
        <translation>समूह या अलग-अलग ग्राहक</translation>
    </message>
    <message>
        <source>Gro&amp;up/Client Scripts</source>
        <translation>समूह/ग्राहक के शेयर (&amp;U)</translation>
    </message>
    <message>
        <source>&amp;All Scripts</source>
        <translation>सभी शेयर (&amp;A)</translation>
    </message>
    <message>
        <source>Which scrips</source>
        <translation>कौन से शेयर</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>आईडी</translation>
    </message>
    <message>
        <source>CLIENT NAME</source>
        <translation>ग्राहक का नाम</translation>
    </message>
    <message>
        <source>Demat accounts</source>
        <translation>डीमैट खाते</translation>
    </message>
    <message>
        <source>DEMAT A/c NO.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Cid</source>
        <translation>ग्राहक आईडी</translation>
    </message>
    <message>
        <source>Scrips</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>SCRIPT NAME</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Select Group Name</source>
        <translation>समूह का नाम चुनें</translation>
    </message>
    <message>
        <source>Select Client!</source>
        <translation>ग्राहक चुनें!</translation>
    </message>
    <message>
        <source>Select Script Name!</source>
        <translation>शेयर का नाम चुनें!</translation>
    </message>
</context>
<context>
    <name>quorvane::notes::ImpNotes</name>
    <message>
        <source>Contract Notes</source>
        <translation>अनुबंध नोट</translation>
    </message>
    <message>
        <source>Contract notes in the files</source>
        <translation>फ़ाइलों के अनुबंध नोट</translation>
    </message>
    <message>
        <source>Note No.</source>
        <translation>नोट संख्या</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Broker</source>
        <translation>ब्रोकर</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>Net Amount</source>
        <translation>शुद्ध राशि</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>File</source>
        <translation>फ़ाइल</translation>
    </message>
    <message>
        <source>Lines of the chosen note</source>
        <translation>चुने हुए नोट की पंक्तियाँ</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>ISIN</source>
        <translation>ISIN</translation>
    </message>
    <message>
        <source>S/P</source>
        <translation>बि/ख़</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>STT</source>
        <translation>एसटीटी</translation>
    </message>
    <message>
        <source>Delivery</source>
        <translation>डिलीवरी</translation>
    </message>
    <message>
        <source>&amp;Broker</source>
        <translation>ब्रोकर (&amp;B)</translation>
    </message>
    <message>
        <source>Only for notes that do not have the broker&apos;s name as it is entered</source>
        <translation>केवल उन नोटों के लिए जिन पर ब्रोकर का नाम दर्ज नाम जैसा नहीं है</translation>
    </message>
    <message>
        <source>&amp;Exchange</source>
        <translation>एक्सचेंज (&amp;E)</translation>
    </message>
    <message>
        <source>For notes that name none; NSE without a choice</source>
        <translation>जिन नोटों पर एक्सचेंज नहीं लिखा है उनके लिए; न चुनने पर NSE</translation>
    </message>
    <message>
        <source>Script of the ISIN</source>
        <translation>ISIN का शेयर</translation>
    </message>
    <message>
        <source>&amp;Script of the ISIN</source>
        <translation>ISIN का शेयर (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Assign</source>
        <translation>सौंपें (&amp;A)</translation>
    </message>
    <message>
        <source>The script is known by this ISIN from now on</source>
        <translation>अब से शेयर इस ISIN से जाना जाएगा</translation>
    </message>
    <message>
        <source>Opens the scripts, to enter the one with this ISIN</source>
        <translation>इस ISIN वाला शेयर दर्ज करने के लिए शेयरों की विंडो खोलता है</translation>
    </message>
    <message>
        <source>&amp;Take Ticked In</source>
        <translation>चिह्नित लें (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Clear the List</source>
        <translation>सूची ख़ाली करें (&amp;C)</translation>
    </message>
    <message>
        <source>Select Client.</source>
        <translation>ग्राहक चुनें।</translation>
    </message>
    <message>
        <source>Select Demat A/c No.</source>
        <translation>डीमैट खाता सं. चुनें।</translation>
    </message>
    <message>
        <source>P</source>
        <translation>ख़</translation>
    </message>
    <message>
        <source>S</source>
        <translation>बि</translation>
    </message>
    <message>
        <source>Non Delivery Based</source>
        <translation>बिना डिलीवरी</translation>
    </message>
    <message>
        <source>Delivery Based</source>
        <translation>डिलीवरी आधारित</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>पढ़ा नहीं गया</translation>
    </message>
    <message>
        <source>Obligation %1, exchange charges %2, tax %3, STT %4, SEBI fee, stamp duty and others %5; net amount %6.</source>
        <translation>देयता %1, एक्सचेंज शुल्क %2, कर %3, एसटीटी %4, सेबी शुल्क, स्टांप शुल्क और अन्य %5; शुद्ध राशि %6।</translation>
    </message>
    <message>
        <source>Select Script.</source>
        <translation>शेयर चुनें।</translation>
    </message>
    <message>
        <source>Replace the Recorded Bills %1 by these Notes?</source>
        <translation>दर्ज बिल %1 को इन नोटों से बदलें?</translation>
    </message>
    <message>
        <source>Tick a Note.</source>
        <translation>कोई नोट चिह्नित करें।</translation>
    </message>
    <message>
        <source>%1 Bills are Recorded.</source>
        <translation>%1 बिल दर्ज किए गए।</translation>
    </message>
    <message>
        <source>&amp;New Script...</source>
        <translation>नया शेयर (&amp;N)...</translation>
    </message>
    <message>
        <source>Add a &amp;File...</source>
        <translation>फ़ाइल जोड़ें (&amp;F)...</translation>
    </message>
    <message>
        <source>Contract Notes (*.pdf *.htm *.html *.xlsx *.xls *.ods);;All Files (*)</source>
        <translation>अनुबंध नोट (*.pdf *.htm *.html *.xlsx *.xls *.ods);;सभी फ़ाइलें (*)</translation>
    </message>
    <message>
        <source>Choose contract notes as brokers send them by e-mail: PDF, web pages or workbooks.</source>
        <translation>वे अनुबंध नोट चुनें जो ब्रोकर ई-मेल से भेजते हैं: PDF, वेब पृष्ठ या वर्कबुक।</translation>
    </message>
    <message>
        <source>Other Shares are Without Delivery than Shown, because not all Notes are Ticked. Take the Ticked Ones In?</source>
        <translation>सभी नोट्स पर निशान न होने से बिना डिलीवरी वाले शेयर दिखाए गए से अलग हैं। निशान लगे नोट्स लें?</translation>
    </message>
</context>
<context>
    <name>quorvane::opening_stock::FrmStkOpBalance</name>
    <message>
        <source>Stock Opening Balance</source>
        <translation>स्टॉक का प्रारंभिक शेष</translation>
    </message>
    <message>
        <source>&amp;Script Name</source>
        <translation>शेयर का नाम (&amp;S)</translation>
    </message>
    <message>
        <source>D&amp;emat A/c No.</source>
        <translation>डीमैट खाता सं. (&amp;E)</translation>
    </message>
    <message>
        <source>F&amp;&amp;O</source>
        <translation>एफ़&amp;&amp;ओ</translation>
    </message>
    <message>
        <source>Futures and options</source>
        <translation>वायदा और विकल्प</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>योग</translation>
    </message>
    <message>
        <source>Purc&amp;hase Date</source>
        <translation>ख़रीद की तारीख़ (&amp;H)</translation>
    </message>
    <message>
        <source>Ser&amp;vice Tax</source>
        <translation>सेवा कर (&amp;V)</translation>
    </message>
    <message>
        <source>STT</source>
        <translation>एसटीटी</translation>
    </message>
    <message>
        <source>Carry &amp;Forward</source>
        <translation>आगे लाएँ (&amp;F)</translation>
    </message>
    <message>
        <source>Brings the lots left of the year before into this year</source>
        <translation>पिछले वर्ष के बचे लॉट इस वर्ष में लाता है</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>रिपोर्ट</translation>
    </message>
    <message>
        <source>Shows the list as pages, to print or save (Ctrl+P)</source>
        <translation>सूची को छापने या सहेजने के लिए पृष्ठों में दिखाता है (Ctrl+P)</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Purchase Date</source>
        <translation>ख़रीद की तारीख़</translation>
    </message>
    <message>
        <source>Service Tax</source>
        <translation>सेवा कर</translation>
    </message>
    <message>
        <source>F&amp;O</source>
        <translation>एफ़&amp;ओ</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>There is no Stock of %1 to Carry Forward.</source>
        <translation>आगे लाने के लिए %1 का कोई स्टॉक नहीं है।</translation>
    </message>
    <message>
        <source>Do you want to Carry Forward the Stock From Previous Year?</source>
        <translation>क्या आप पिछले वर्ष का स्टॉक आगे लाना चाहते हैं?</translation>
    </message>
    <message>
        <source>%1 lots were carried forward. %2 other opening rows stay as they are; delete those that should not count.</source>
        <translation>%1 लॉट आगे लाए गए। %2 अन्य प्रारंभिक पंक्तियाँ वैसी ही हैं; जो नहीं गिननी हैं उन्हें हटा दें।</translation>
    </message>
    <message>
        <source>Scrip Code</source>
        <translation>शेयर कोड</translation>
    </message>
    <message>
        <source>BSE or NSE</source>
        <translation>बीएसई या एनएसई</translation>
    </message>
    <message>
        <source>There is no Scrip of the Code %1.</source>
        <translation>कोड %1 का कोई शेयर नहीं है।</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
</context>
<context>
    <name>quorvane::paper::PaperFields</name>
    <message>
        <source>C&amp;lient</source>
        <translation>ग्राहक (&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Demat A/c No.</source>
        <translation>डीमैट खाता संख्या (&amp;D)</translation>
    </message>
    <message>
        <source>Pass&amp;word</source>
        <translation>पासवर्ड (&amp;W)</translation>
    </message>
    <message>
        <source>the client&apos;s PAN is tried by itself</source>
        <translation>ग्राहक का पैन अपने आप आज़माया जाता है</translation>
    </message>
</context>
<context>
    <name>quorvane::participants::FrmDepPart</name>
    <message>
        <source>Depository Participant</source>
        <translation>डिपॉज़िटरी प्रतिभागी</translation>
    </message>
    <message>
        <source>Contact Pe&amp;rson</source>
        <translation>संपर्क व्यक्ति (&amp;R)</translation>
    </message>
    <message>
        <source>Desi&amp;gnation</source>
        <translation>पदनाम (&amp;G)</translation>
    </message>
    <message>
        <source>Dep&amp;ository</source>
        <translation>डिपॉज़िटरी (&amp;O)</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Depository</source>
        <translation>डिपॉज़िटरी</translation>
    </message>
    <message>
        <source>City</source>
        <translation>शहर</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Contact Person</source>
        <translation>संपर्क व्यक्ति</translation>
    </message>
    <message>
        <source>DP ids of the participant</source>
        <translation>प्रतिभागी की डीपी आईडी</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>आईडी</translation>
    </message>
    <message>
        <source>DP Id</source>
        <translation>डीपी आईडी</translation>
    </message>
    <message>
        <source>Add Ro&amp;w</source>
        <translation>पंक्ति जोड़ें (&amp;W)</translation>
    </message>
    <message>
        <source>Remo&amp;ve Row</source>
        <translation>पंक्ति हटाएँ (&amp;V)</translation>
    </message>
</context>
<context>
    <name>quorvane::performance::RptReturns</name>
    <message>
        <source>Returns</source>
        <translation>प्रतिफल</translation>
    </message>
    <message>
        <source>&amp;Script Name</source>
        <translation>शेयर का नाम (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Demat A/c No.</source>
        <translation>डीमैट खाता सं. (&amp;D)</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>किसका</translation>
    </message>
    <message>
        <source>&amp;Client</source>
        <translation>ग्राहक (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Family</source>
        <translation>परिवार (&amp;F)</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>चार्ट</translation>
    </message>
    <message>
        <source>All Scripts</source>
        <translation>सभी शेयर</translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation>सभी खाते</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>परिवार</translation>
    </message>
</context>
<context>
    <name>quorvane::portfolio::ColumnPane</name>
    <message>
        <source>(not read)</source>
        <translation>(नहीं पढ़ा जाता)</translation>
    </message>
    <message>
        <source>The headings of this file are not known yet. Choose what its columns mean; the trades below show how it is then read. The choice is kept for the next file.</source>
        <translation>इस फ़ाइल के शीर्षक अभी ज्ञात नहीं हैं। स्तंभों का अर्थ चुनें; नीचे के सौदे दिखाते हैं कि फ़ाइल कैसे पढ़ी जाएगी। चुनाव अगली फ़ाइल के लिए याद रहता है।</translation>
    </message>
    <message>
        <source>Columns of the file</source>
        <translation>फ़ाइल के स्तंभ</translation>
    </message>
    <message>
        <source>Heading</source>
        <translation>शीर्षक</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>पहली पंक्ति</translation>
    </message>
    <message>
        <source>Second Row</source>
        <translation>दूसरी पंक्ति</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>अर्थ</translation>
    </message>
    <message>
        <source>First trades of the file</source>
        <translation>फ़ाइल के पहले सौदे</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Exchange</source>
        <translation>एक्सचेंज</translation>
    </message>
    <message>
        <source>Script</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Purchase or Sale</source>
        <translation>खरीद या बिक्री</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>&amp;Month before Day</source>
        <translation>दिन से पहले महीना (&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Use these Columns</source>
        <translation>ये स्तंभ लें (&amp;U)</translation>
    </message>
    <message>
        <source>Still missing: %1</source>
        <translation>अभी बाकी: %1</translation>
    </message>
    <message>
        <source>%1 trades in the first %2 rows.</source>
        <translation>पहली %2 पंक्तियों में %1 सौदे।</translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation>ख़रीद</translation>
    </message>
    <message>
        <source>Sale</source>
        <translation>बिक्री</translation>
    </message>
</context>
<context>
    <name>quorvane::portfolio::ImpTrades</name>
    <message>
        <source>Trade Books of Brokers</source>
        <translation>ब्रोकरों की ट्रेड बुक</translation>
    </message>
    <message>
        <source>Trade books: .csv, .xlsx, .xls or .ods; several files at once</source>
        <translation>ट्रेड बुक: .csv, .xlsx, .xls या .ods; एक साथ कई फ़ाइलें</translation>
    </message>
    <message>
        <source>S&amp;cript</source>
        <translation>शेयर (&amp;C)</translation>
    </message>
    <message>
        <source>Assi&amp;gn</source>
        <translation>जोड़ें (&amp;G)</translation>
    </message>
    <message>
        <source>&amp;New Script</source>
        <translation>नया शेयर (&amp;N)</translation>
    </message>
    <message>
        <source>The trades of the current line&apos;s script are trades of the chosen one</source>
        <translation>वर्तमान पंक्ति के शेयर के सौदे चुने हुए शेयर के सौदे हैं</translation>
    </message>
    <message>
        <source>The current line&apos;s script is recorded with the trades</source>
        <translation>वर्तमान पंक्ति का शेयर सौदों के साथ दर्ज होता है</translation>
    </message>
    <message>
        <source>Confirm &amp;Probable Scripts</source>
        <translation>संभावित शेयर पक्के करें (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Look Again</source>
        <translation>फिर जाँचें (&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Save Ticked</source>
        <translation>चुने हुए सहेजें (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>बंद करें (&amp;E)</translation>
    </message>
    <message>
        <source>Trade Books (*.csv *.xlsx *.xls *.ods *.zip);;All Files (*)</source>
        <translation>ट्रेड बुक (*.csv *.xlsx *.xls *.ods *.zip);;सभी फ़ाइलें (*)</translation>
    </message>
    <message>
        <source>%1 bills with %2 lines would be saved.</source>
        <translation>%2 पंक्तियों के %1 बिल सहेजे जाएँगे।</translation>
    </message>
    <message>
        <source>%1 lots are carried forward.</source>
        <translation>%1 लॉट आगे ले जाए जाते हैं।</translation>
    </message>
    <message>
        <source>Choose the demat account that the trades belong to.</source>
        <translation>सौदों का डीमैट खाता चुनें।</translation>
    </message>
    <message>
        <source>Choose the broker of the trades.</source>
        <translation>सौदों का ब्रोकर चुनें।</translation>
    </message>
    <message>
        <source>Nothing to save yet.</source>
        <translation>अभी सहेजने को कुछ नहीं।</translation>
    </message>
    <message>
        <source>Choose the trade books of a broker, and the demat account and broker that they belong to.</source>
        <translation>ब्रोकर की ट्रेड बुक चुनें, और उनका डीमैट खाता व ब्रोकर।</translation>
    </message>
    <message>
        <source>Choose a line of the script.</source>
        <translation>शेयर की एक पंक्ति चुनें।</translation>
    </message>
    <message>
        <source>Choose the script.</source>
        <translation>शेयर चुनें।</translation>
    </message>
    <message>
        <source>The script of this line is known.</source>
        <translation>इस पंक्ति का शेयर ज्ञात है।</translation>
    </message>
    <message>
        <source>Record all %1 unknown scripts as new?

No records only that of the current line.</source>
        <translation>सभी %1 अज्ञात शेयर नए दर्ज करें?

&quot;नहीं&quot; केवल वर्तमान पंक्ति का शेयर दर्ज करता है।</translation>
    </message>
    <message>
        <source>%1 Trades are Saved in %2 Bills.</source>
        <translation>%2 बिलों में %1 सौदे सहेजे गए।</translation>
    </message>
    <message>
        <source>%1 Scripts are New.</source>
        <translation>%1 शेयर नए हैं।</translation>
    </message>
    <message>
        <source>&amp;Files...</source>
        <translation>फ़ाइलें (&amp;F)...</translation>
    </message>
</context>
<context>
    <name>quorvane::portfolio::LinesPane</name>
    <message>
        <source>Probably %1</source>
        <translation>शायद %1</translation>
    </message>
    <message>
        <source>%1 shares are missing on %2</source>
        <translation>%2 को %1 शेयर कम हैं</translation>
    </message>
    <message>
        <source>New script</source>
        <translation>नया शेयर</translation>
    </message>
    <message>
        <source>Bill lines that the trades make</source>
        <translation>सौदों से बनी बिल की पंक्तियाँ</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Exch.</source>
        <translation>एक्स.</translation>
    </message>
    <message>
        <source>Script</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>P/S</source>
        <translation>ख़/बि</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Brokerage</source>
        <translation>दलाली</translation>
    </message>
    <message>
        <source>S.Tax</source>
        <translation>सेवा कर</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी.</translation>
    </message>
    <message>
        <source>Delivery</source>
        <translation>डिलीवरी</translation>
    </message>
    <message>
        <source>Bill No.</source>
        <translation>बिल सं.</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>All lines</source>
        <translation>सभी पंक्तियाँ</translation>
    </message>
    <message>
        <source>To be saved</source>
        <translation>सहेजी जाएँगी</translation>
    </message>
    <message>
        <source>To be settled</source>
        <translation>तय करनी हैं</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>छोड़ी गईं</translation>
    </message>
    <message>
        <source>Sho&amp;w</source>
        <translation>दिखाएँ (&amp;W)</translation>
    </message>
    <message>
        <source>%1 new, %2 taken in already, %3 probably entered by hand, %4 of scripts to be settled, %5 without shares. %6</source>
        <translation>%1 नई, %2 पहले से आयात, %3 शायद हाथ से दर्ज, %4 के शेयर तय करने हैं, %5 बिना शेयर। %6</translation>
    </message>
    <message>
        <source>This trade is taken in already; correct its bill.</source>
        <translation>यह सौदा पहले से आयात है; उसका बिल ठीक करें।</translation>
    </message>
    <message>
        <source>Quantity and rate are above 0.</source>
        <translation>मात्रा और भाव 0 से अधिक हों।</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>P</source>
        <translation>ख़</translation>
    </message>
    <message>
        <source>S</source>
        <translation>बि</translation>
    </message>
</context>
<context>
    <name>quorvane::portfolio::TargetPane</name>
    <message>
        <source>Of trades whose file names none</source>
        <translation>उन सौदों का जिनकी फ़ाइल एक्सचेंज नहीं बताती</translation>
    </message>
    <message>
        <source>&amp;Join Fills of an Order</source>
        <translation>एक ऑर्डर के सौदे जोड़ें (&amp;J)</translation>
    </message>
    <message>
        <source>&amp;Account</source>
        <translation>खाता (&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Broker</source>
        <translation>ब्रोकर (&amp;B)</translation>
    </message>
    <message>
        <source>E&amp;xchange</source>
        <translation>एक्सचेंज (&amp;X)</translation>
    </message>
</context>
<context>
    <name>quorvane::profit::RptProfitStatement</name>
    <message>
        <source>Capital Gain Statement</source>
        <translation>पूँजीगत लाभ विवरण</translation>
    </message>
    <message>
        <source>Profit Statement</source>
        <translation>लाभ विवरण</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Demat accounts</source>
        <translation>डीमैट खाते</translation>
    </message>
    <message>
        <source>Show Client Scripts</source>
        <translation>ग्राहक के शेयर दिखाएँ</translation>
    </message>
    <message>
        <source>Show All Scripts</source>
        <translation>सभी शेयर दिखाएँ</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Scrips</source>
        <translation>शेयर</translation>
    </message>
    <message>
        <source>Bills</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>F &amp;&amp; O</source>
        <translation>एफ़ &amp;&amp; ओ</translation>
    </message>
    <message>
        <source>Non F &amp;&amp; O</source>
        <translation>ग़ैर-एफ़ &amp;&amp; ओ</translation>
    </message>
    <message>
        <source>All</source>
        <translation>सभी</translation>
    </message>
    <message>
        <source>Service Tax</source>
        <translation>सेवा कर</translation>
    </message>
    <message>
        <source>Non S.Tax</source>
        <translation>बिना सेवा कर</translation>
    </message>
    <message>
        <source>S.Tax</source>
        <translation>सेवा कर सहित</translation>
    </message>
    <message>
        <source>STT</source>
        <translation>एसटीटी</translation>
    </message>
    <message>
        <source>Non S.T.T.</source>
        <translation>बिना एस.टी.टी.</translation>
    </message>
    <message>
        <source>S.T.T.</source>
        <translation>एस.टी.टी. सहित</translation>
    </message>
    <message>
        <source>Gains</source>
        <translation>लाभ</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>दोनों</translation>
    </message>
    <message>
        <source>Non-Speculation</source>
        <translation>ग़ैर-सट्टा</translation>
    </message>
    <message>
        <source>Speculation</source>
        <translation>सट्टा</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>ख़ाका</translation>
    </message>
    <message>
        <source>New Format</source>
        <translation>नया प्रारूप</translation>
    </message>
    <message>
        <source>Old Format</source>
        <translation>पुराना प्रारूप</translation>
    </message>
    <message>
        <source>Summary: one line a sale</source>
        <translation>संक्षेप: हर बिक्री की एक पंक्ति</translation>
    </message>
    <message>
        <source>Detail: purchases beside sales</source>
        <translation>विस्तार: बिक्री के साथ ख़रीद</translation>
    </message>
    <message>
        <source>Average Rate</source>
        <translation>औसत भाव</translation>
    </message>
    <message>
        <source>Export &amp;Capital Gain</source>
        <translation>पूँजीगत लाभ निर्यात (&amp;C)</translation>
    </message>
    <message>
        <source>Select Script Name!</source>
        <translation>शेयर का नाम चुनें!</translation>
    </message>
    <message>
        <source>Do You Want to Show Unsold Quantity Also?</source>
        <translation>क्या आप अनबिकी मात्रा भी दिखाना चाहते हैं?</translation>
    </message>
    <message>
        <source>No Record Found.</source>
        <translation>कोई रिकॉर्ड नहीं मिला।</translation>
    </message>
    <message>
        <source>Report is Ready.</source>
        <translation>रिपोर्ट तैयार है।</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>चार्ट</translation>
    </message>
    <message>
        <source>Financial Year : </source>
        <translation>Financial Year : </translation>
    </message>
    <message>
        <source>From 2018-19 the return needs the Tax Year report: fair values of 31-Jan-2018, sections and set-off.</source>
        <translation>2018-19 से आयकर विवरणी के लिए कर वर्ष रिपोर्ट चाहिए: 31 जनवरी 2018 के उचित मूल्य, धाराएँ और समायोजन।</translation>
    </message>
    <message>
        <source>Tax Year</source>
        <translation>कर वर्ष</translation>
    </message>
</context>
<context>
    <name>quorvane::rates::Download</name>
    <message>
        <source>no whole answer in time</source>
        <translation>समय पर पूरा उत्तर नहीं मिला</translation>
    </message>
    <message>
        <source>the answer is larger than %1 bytes</source>
        <translation>उत्तर %1 बाइट से बड़ा है</translation>
    </message>
    <message>
        <source>the server answered with the status %1</source>
        <translation>सर्वर ने स्थिति %1 के साथ उत्तर दिया</translation>
    </message>
</context>
<context>
    <name>quorvane::reconcile::FrmReconcile</name>
    <message>
        <source>Compare with Statement</source>
        <translation>विवरण से मिलान</translation>
    </message>
    <message>
        <source>Select Client.</source>
        <translation>ग्राहक चुनें।</translation>
    </message>
    <message>
        <source>%1, as on %2: %3 of %4 holdings do not agree.</source>
        <translation>%1, %2 को: %4 में से %3 होल्डिंग नहीं मिलतीं।</translation>
    </message>
    <message>
        <source>%1 is not compared.</source>
        <translation>%1 का मिलान नहीं हुआ।</translation>
    </message>
    <message>
        <source>Opening Stock without Cost</source>
        <translation>बिना लागत का आरंभिक स्टॉक</translation>
    </message>
    <message>
        <source>Opening Stock without Cost (%1)</source>
        <translation>बिना लागत का आरंभिक स्टॉक (%1)</translation>
    </message>
    <message>
        <source>Select Script.</source>
        <translation>शेयर चुनें।</translation>
    </message>
    <message>
        <source>Take the Quantities of the Statement In as Opening Stock of %1?</source>
        <translation>विवरण की मात्राएँ %1 के आरंभिक स्टॉक के रूप में लें?</translation>
    </message>
    <message>
        <source>%1 Opening Lots are Taken In. Enter the Cost and the Day of Purchase of Each.</source>
        <translation>%1 आरंभिक लॉट लिए गए। प्रत्येक की लागत और ख़रीद की तारीख़ दर्ज करें।</translation>
    </message>
    <message>
        <source>Choose a Statement First.</source>
        <translation>पहले कोई विवरण चुनें।</translation>
    </message>
    <message>
        <source>Choose a statement of holdings of the depository or of its participant: PDF, comma separated text or workbook.</source>
        <translation>डिपॉज़िटरी या उसके प्रतिभागी का होल्डिंग विवरण चुनें: PDF, CSV या वर्कबुक।</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>मिलान</translation>
    </message>
    <message>
        <source>Opening stock that has no cost yet</source>
        <translation>आरंभिक स्टॉक जिसकी लागत अभी नहीं है</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>वर्ष</translation>
    </message>
    <message>
        <source>Demat A/c No.</source>
        <translation>डीमैट खाता सं.</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Enter &amp;Cost and Day</source>
        <translation>लागत और तारीख़ दर्ज करें (&amp;C)</translation>
    </message>
    <message>
        <source>Only for a statement that names no account</source>
        <translation>केवल उस विवरण के लिए जिसमें खाता नहीं लिखा है</translation>
    </message>
    <message>
        <source>As O&amp;n</source>
        <translation>तारीख़ को (&amp;N)</translation>
    </message>
    <message>
        <source>Only for a statement that names no day, or to compare with another one</source>
        <translation>केवल उस विवरण के लिए जिसमें तारीख़ नहीं है, या दूसरी तारीख़ से मिलान के लिए</translation>
    </message>
    <message>
        <source>Only D&amp;ifferences</source>
        <translation>केवल अंतर (&amp;I)</translation>
    </message>
    <message>
        <source>Holdings in the books and in the statement</source>
        <translation>बहियों और विवरण में होल्डिंग</translation>
    </message>
    <message>
        <source>In the Books</source>
        <translation>बहियों में</translation>
    </message>
    <message>
        <source>In the Statement</source>
        <translation>विवरण में</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>अंतर</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>परिणाम</translation>
    </message>
    <message>
        <source>Likely Cause</source>
        <translation>संभावित कारण</translation>
    </message>
    <message>
        <source>ISIN</source>
        <translation>ISIN</translation>
    </message>
    <message>
        <source>Open the Ca&amp;use</source>
        <translation>कारण खोलें (&amp;U)</translation>
    </message>
    <message>
        <source>The bill, the transfer, or the corporate action, ready to be entered</source>
        <translation>बिल, अंतरण, या दर्ज करने के लिए तैयार कॉर्पोरेट कार्रवाई</translation>
    </message>
    <message>
        <source>Script of the ISIN</source>
        <translation>ISIN का शेयर</translation>
    </message>
    <message>
        <source>&amp;Script of the ISIN</source>
        <translation>ISIN का शेयर (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Assign</source>
        <translation>सौंपें (&amp;A)</translation>
    </message>
    <message>
        <source>The script is known by this ISIN from now on</source>
        <translation>अब से शेयर इस ISIN से जाना जाएगा</translation>
    </message>
    <message>
        <source>Reads a statement</source>
        <translation>विवरण पढ़ता है</translation>
    </message>
    <message>
        <source>Co&amp;mpare Again</source>
        <translation>फिर मिलान करें (&amp;M)</translation>
    </message>
    <message>
        <source>Reads the same statement and the books once more</source>
        <translation>वही विवरण और बहियाँ फिर पढ़ता है</translation>
    </message>
    <message>
        <source>Take In as Openin&amp;g Stock</source>
        <translation>आरंभिक स्टॉक के रूप में लें (&amp;G)</translation>
    </message>
    <message>
        <source>For a new client: quantities from the statement, cost and day to be filled in later</source>
        <translation>नए ग्राहक के लिए: मात्राएँ विवरण से, लागत और तारीख़ बाद में</translation>
    </message>
    <message>
        <source>Out&amp;put</source>
        <translation>आउटपुट (&amp;P)</translation>
    </message>
    <message>
        <source>Pages, Word, Excel, PDF and CSV</source>
        <translation>पृष्ठ, वर्ड, एक्सेल, पीडीएफ़ और सीएसवी</translation>
    </message>
    <message>
        <source>Pages of the comparison</source>
        <translation>तुलना के पृष्ठ</translation>
    </message>
    <message>
        <source>From &amp;File...</source>
        <translation>फ़ाइल से (&amp;F)...</translation>
    </message>
    <message>
        <source>Statements (*.pdf *.htm *.html *.csv *.xlsx *.xls *.ods);;All Files (*)</source>
        <translation>विवरण (*.pdf *.htm *.html *.csv *.xlsx *.xls *.ods);;सभी फ़ाइलें (*)</translation>
    </message>
</context>
<context>
    <name>quorvane::repair::RepairTable</name>
    <message>
        <source>In order</source>
        <translation>ठीक</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>ख़राब</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>The server does not let this user check the table.</source>
        <translation>सर्वर इस उपयोगकर्ता को तालिका जाँचने नहीं देता।</translation>
    </message>
    <message>
        <source>Wrong</source>
        <translation>ग़लत</translation>
    </message>
    <message>
        <source>%1 keys (%2) stand more than once.</source>
        <translation>%1 कुंजियाँ (%2) एक से अधिक बार हैं।</translation>
    </message>
    <message>
        <source>%1 lots do not agree with the documents.</source>
        <translation>%1 लॉट दस्तावेज़ों से मेल नहीं खाते।</translation>
    </message>
    <message>
        <source>%1 rows name a record of %2 (%3) that is not there.</source>
        <translation>%1 पंक्तियाँ %2 (%3) के ऐसे रिकॉर्ड का उल्लेख करती हैं जो मौजूद नहीं है।</translation>
    </message>
    <message>
        <source>the lot stands twice</source>
        <translation>लॉट दो बार है</translation>
    </message>
    <message>
        <source>the documents say %1</source>
        <translation>दस्तावेज़ों के अनुसार %1</translation>
    </message>
    <message>
        <source>%1, %2, account %3, scrip %4 at %5: the ledger holds %6, %7.</source>
        <translation>%1, %2, खाता %3, शेयर %4, भाव %5: खाता बही में %6, %7।</translation>
    </message>
    <message>
        <source>Refresh Data</source>
        <translation>डेटा ताज़ा करें</translation>
    </message>
    <message>
        <source>Checks every table, its keys, and whether the holdings agree with opening stock, bills and transfers. Nothing is changed by it.</source>
        <translation>हर तालिका, उसकी कुंजियाँ, और होल्डिंग का प्रारंभिक स्टॉक, बिल और हस्तांतरण से मेल जाँचता है। इससे कुछ नहीं बदलता।</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>जाँच के परिणाम</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>तालिका</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>रिकॉर्ड</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>क्या मिला</translation>
    </message>
    <message>
        <source>Chec&amp;k</source>
        <translation>जाँचें (&amp;K)</translation>
    </message>
    <message>
        <source>Update &amp;Stock</source>
        <translation>स्टॉक अद्यतन (&amp;S)</translation>
    </message>
    <message>
        <source>Computes the holdings of every client and year anew</source>
        <translation>हर ग्राहक और वर्ष की होल्डिंग की गणना फिर से करता है</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>Something is wrong. Make a BackUp before anything else.</source>
        <translation>कुछ ग़लत है। सबसे पहले बैकअप लें।</translation>
    </message>
    <message>
        <source>Something is wrong. &quot;Update Stock&quot; mends the holdings.</source>
        <translation>कुछ ग़लत है। &quot;स्टॉक अद्यतन&quot; होल्डिंग ठीक करता है।</translation>
    </message>
    <message>
        <source>All tables are in order, and every holding agrees with its documents.</source>
        <translation>सभी तालिकाएँ ठीक हैं, और हर होल्डिंग अपने दस्तावेज़ों से मेल खाती है।</translation>
    </message>
    <message>
        <source>All tables are in order, and every holding agrees with its documents. Some records name others that are not there; see the notes.</source>
        <translation>सभी तालिकाएँ ठीक हैं, और हर होल्डिंग अपने दस्तावेज़ों से मेल खाती है। कुछ रिकॉर्ड ऐसे रिकॉर्ड का उल्लेख करते हैं जो मौजूद नहीं हैं; टिप्पणियाँ देखें।</translation>
    </message>
    <message>
        <source>The holdings of every client and year are computed anew from opening stock, bills and transfers. Go on?</source>
        <translation>हर ग्राहक और वर्ष की होल्डिंग की गणना प्रारंभिक स्टॉक, बिल और हस्तांतरण से फिर की जाएगी। आगे बढ़ें?</translation>
    </message>
    <message>
        <source>Stock is Updated Successfully !!!
Lots changed: %1</source>
        <translation>स्टॉक सफलतापूर्वक अद्यतन हुआ !!!
बदले हुए लॉट: %1</translation>
    </message>
    <message>
        <source>Give &amp;New Keys</source>
        <translation>नई कुंजियाँ दें (&amp;N)</translation>
    </message>
    <message>
        <source>Gives records that share a key with another one keys of their own</source>
        <translation>जिन रिकॉर्ड की कुंजी एक ही है उन्हें अपनी-अपनी कुंजी देता है</translation>
    </message>
    <message>
        <source>Key %1: %2</source>
        <translation>कुंजी %1: %2</translation>
    </message>
    <message>
        <source>The first record of each key that stands more than once keeps it; the others get new keys, and what belongs to them goes along. Make a BackUp first. Go on?</source>
        <translation>एक से अधिक बार आई हर कुंजी पहले रिकॉर्ड के पास रहती है; बाक़ी को नई कुंजियाँ मिलती हैं, और जो उनका है वह साथ जाता है। पहले बैकअप लें। आगे बढ़ें?</translation>
    </message>
    <message>
        <source>Records with a new key: %1</source>
        <translation>नई कुंजी वाले रिकॉर्ड: %1</translation>
    </message>
    <message>
        <source>Copies of a record, equal in every field, that were removed: %1</source>
        <translation>किसी रिकॉर्ड की हर फ़ील्ड में समान प्रतियाँ जो हटाई गईं: %1</translation>
    </message>
    <message>
        <source>Log of Changes</source>
        <translation>बदलावों का लॉग</translation>
    </message>
    <message>
        <source>The log of changes was edited by other means: %1</source>
        <translation>बदलावों का लॉग अन्य साधन से बदला गया: %1</translation>
    </message>
</context>
<context>
    <name>quorvane::reporting::MonthsPane</name>
    <message>
        <source>From &amp;Month :</source>
        <translation>महीने से (&amp;M) :</translation>
    </message>
    <message>
        <source>To Mo&amp;nth :</source>
        <translation>महीने तक (&amp;N) :</translation>
    </message>
</context>
<context>
    <name>quorvane::reporting::PeriodPane</name>
    <message>
        <source>From</source>
        <translation>तारीख़ से</translation>
    </message>
    <message>
        <source>To</source>
        <translation>तारीख़ तक</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>तारीख़ से (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>तारीख़ तक (&amp;T)</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>अवधि</translation>
    </message>
</context>
<context>
    <name>quorvane::reporting::PreviewWindow</name>
    <message>
        <source>Fit Width</source>
        <translation>चौड़ाई में फ़िट करें</translation>
    </message>
    <message>
        <source>Fit Page</source>
        <translation>पृष्ठ फ़िट करें</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>पृष्ठ</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>छापें (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Save as PDF</source>
        <translation>पीडीएफ़ सहेजें (&amp;S)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>पहला पृष्ठ</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>पिछला पृष्ठ</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>पृष्ठ</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>/ %1</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>अगला पृष्ठ</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>अंतिम पृष्ठ</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>छोटा करें</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>ज़ूम</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>बड़ा करें</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>खोजें</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>नहीं मिला</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>पिछला खोजें</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>अगला खोजें</translation>
    </message>
    <message>
        <source>Searching</source>
        <translation>खोज हो रही है</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>पृष्ठ %1</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>छपाई हो रही है</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>%1 के रूप में सहेजा गया।</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>पृष्ठ %1 / %2</translation>
    </message>
</context>
<context>
    <name>quorvane::reporting::ReportOutputs</name>
    <message>
        <source>&amp;Preview and Print</source>
        <translation>पूर्वावलोकन और छपाई (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Word</source>
        <translation>वर्ड (&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Excel</source>
        <translation>एक्सेल (&amp;E)</translation>
    </message>
    <message>
        <source>P&amp;DF</source>
        <translation>पीडीएफ़ (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;CSV</source>
        <translation>सीएसवी (&amp;C)</translation>
    </message>
    <message>
        <source>The report lies in %1. No program that opens it was found.</source>
        <translation>रिपोर्ट %1 में है। उसे खोलने वाला कोई प्रोग्राम नहीं मिला।</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>%1 के रूप में सहेजा गया।</translation>
    </message>
</context>
<context>
    <name>quorvane::reporting::ReportWindow</name>
    <message>
        <source>Report</source>
        <translation>रिपोर्ट</translation>
    </message>
    <message>
        <source>The report appears here.</source>
        <translation>रिपोर्ट यहाँ दिखेगी।</translation>
    </message>
    <message>
        <source>Pages, Word, Excel, PDF and CSV</source>
        <translation>पृष्ठ, वर्ड, एक्सेल, पीडीएफ़ और सीएसवी</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>No Record Found.</source>
        <translation>कोई रिकॉर्ड नहीं मिला।</translation>
    </message>
    <message>
        <source>&amp;Report</source>
        <translation>रिपोर्ट (&amp;R)</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>Out&amp;put</source>
        <translation>आउटपुट (&amp;P)</translation>
    </message>
    <message>
        <source>Report and charts</source>
        <translation>रिपोर्ट और चार्ट</translation>
    </message>
</context>
<context>
    <name>quorvane::reporting::TickGrid</name>
    <message>
        <source>and %1 more</source>
        <translation>और %1 अन्य</translation>
    </message>
    <message>
        <source>Select Demat A/c!</source>
        <translation>डीमैट खाता चुनें!</translation>
    </message>
</context>
<context>
    <name>quorvane::scrip_page::RptScripPage</name>
    <message>
        <source>Script Page</source>
        <translation>शेयर का पृष्ठ</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>&amp;Script Name</source>
        <translation>शेयर का नाम (&amp;S)</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>किसका</translation>
    </message>
    <message>
        <source>&amp;Client</source>
        <translation>ग्राहक (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Family</source>
        <translation>परिवार (&amp;F)</translation>
    </message>
    <message>
        <source>Holding</source>
        <translation>होल्डिंग</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>चार्ट</translation>
    </message>
    <message>
        <source>Select Script.</source>
        <translation>शेयर चुनें।</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>परिवार</translation>
    </message>
</context>
<context>
    <name>quorvane::scrips::FrmScript</name>
    <message>
        <source>Script Details</source>
        <translation>शेयर विवरण</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>कोड</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Second Code</source>
        <translation>दूसरा कोड</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Script &amp;Code</source>
        <translation>शेयर कोड (&amp;C)</translation>
    </message>
    <message>
        <source>Script Na&amp;me</source>
        <translation>शेयर का नाम (&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Second Code</source>
        <translation>दूसरा कोड (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Type</source>
        <translation>प्रकार (&amp;T)</translation>
    </message>
    <message>
        <source>C&amp;lass</source>
        <translation>श्रेणी (&amp;L)</translation>
    </message>
    <message>
        <source>Scr&amp;ipt Types...</source>
        <translation>शेयर प्रकार (&amp;I)...</translation>
    </message>
    <message>
        <source>Sc&amp;ript Classes...</source>
        <translation>शेयर श्रेणियाँ (&amp;R)...</translation>
    </message>
    <message>
        <source>ISINs of the script</source>
        <translation>शेयर के ISIN</translation>
    </message>
    <message>
        <source>ISIN</source>
        <translation>ISIN</translation>
    </message>
    <message>
        <source>From Day</source>
        <translation>इस दिन से</translation>
    </message>
    <message>
        <source>Add ISI&amp;N</source>
        <translation>ISIN जोड़ें (&amp;N)</translation>
    </message>
    <message>
        <source>Remo&amp;ve ISIN</source>
        <translation>ISIN हटाएँ (&amp;V)</translation>
    </message>
    <message>
        <source>ISINs</source>
        <translation>ISIN</translation>
    </message>
</context>
<context>
    <name>quorvane::search::FrmSearch</name>
    <message>
        <source>Search</source>
        <translation>खोजें</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>क्या मिला</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>मिला</translation>
    </message>
    <message>
        <source>About</source>
        <translation>विवरण</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>खोजें (&amp;S)</translation>
    </message>
    <message>
        <source>Part of a client, an account or a scrip, or the beginning of an ISIN, a bill number or a cheque number.</source>
        <translation>ग्राहक, खाते या शेयर का कोई भाग, या ISIN, बिल संख्या या चेक संख्या की शुरुआत।</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>कुछ नहीं मिला।</translation>
    </message>
    <message>
        <source>Enter opens the chosen record. At most %1 of a kind are shown.</source>
        <translation>Enter चुना हुआ रिकॉर्ड खोलता है। हर प्रकार के अधिक से अधिक %1 दिखते हैं।</translation>
    </message>
</context>
<context>
    <name>quorvane::settings::DatabaseTrial</name>
    <message>
        <source>The Server Gives no Answer.</source>
        <translation>सर्वर से उत्तर नहीं मिला।</translation>
    </message>
</context>
<context>
    <name>quorvane::settings::frmsettings</name>
    <message>
        <source>Settings</source>
        <translation>सेटिंग</translation>
    </message>
    <message>
        <source>&amp;Display</source>
        <translation>प्रदर्शन (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Folders</source>
        <translation>फ़ोल्डर (&amp;F)</translation>
    </message>
    <message>
        <source>Data&amp;base</source>
        <translation>डेटाबेस (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Internet</source>
        <translation>इंटरनेट (&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Printer</source>
        <translation>प्रिंटर (&amp;P)</translation>
    </message>
    <message>
        <source>Folder of the Templates</source>
        <translation>साँचों का फ़ोल्डर</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>विंडो (&amp;W)</translation>
    </message>
    <message>
        <source>Stretched to the screen</source>
        <translation>स्क्रीन के अनुसार</translation>
    </message>
    <message>
        <source>Stretched to a resolution</source>
        <translation>रिज़ॉल्यूशन के अनुसार</translation>
    </message>
    <message>
        <source>In their designed size</source>
        <translation>मूल आकार में</translation>
    </message>
    <message>
        <source>Hori&amp;zontal pixels</source>
        <translation>क्षैतिज पिक्सेल (&amp;Z)</translation>
    </message>
    <message>
        <source>&amp;Vertical pixels</source>
        <translation>ऊर्ध्व पिक्सेल (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>थीम (&amp;T)</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>डेस्कटॉप जैसी</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>हल्की</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>गहरी</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>भाषा (&amp;L)</translation>
    </message>
    <message>
        <source>Theme and language hold as soon as they are saved. Windows that are open keep their texts and sizes until they are opened again. Reports are always in English.</source>
        <translation>थीम और भाषा सहेजते ही लागू होती हैं। खुली विंडो के पाठ और आकार दोबारा खुलने पर बदलते हैं। रिपोर्ट हमेशा अंग्रेज़ी में रहती हैं।</translation>
    </message>
    <message>
        <source>Report templates</source>
        <translation>रिपोर्ट के साँचे</translation>
    </message>
    <message>
        <source>Pic&amp;k...</source>
        <translation>चुनें (&amp;K)...</translation>
    </message>
    <message>
        <source>Report &amp;templates</source>
        <translation>रिपोर्ट के साँचे (&amp;T)</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>प्रोग्राम</translation>
    </message>
    <message>
        <source>Documents of clients</source>
        <translation>ग्राहकों के दस्तावेज़</translation>
    </message>
    <message>
        <source>Screen settings</source>
        <translation>स्क्रीन सेटिंग</translation>
    </message>
    <message>
        <source>T&amp;he program&apos;s own database</source>
        <translation>प्रोग्राम का अपना डेटाबेस (&amp;H)</translation>
    </message>
    <message>
        <source>Another se&amp;rver</source>
        <translation>दूसरा सर्वर (&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Test Connection</source>
        <translation>कनेक्शन जाँचें (&amp;T)</translation>
    </message>
    <message>
        <source>Ser&amp;ver</source>
        <translation>सर्वर (&amp;V)</translation>
    </message>
    <message>
        <source>P&amp;ort</source>
        <translation>पोर्ट (&amp;O)</translation>
    </message>
    <message>
        <source>Soc&amp;ket</source>
        <translation>सॉकेट (&amp;K)</translation>
    </message>
    <message>
        <source>Database &amp;name</source>
        <translation>डेटाबेस का नाम (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation>उपयोगकर्ता (&amp;U)</translation>
    </message>
    <message>
        <source>Pass&amp;word</source>
        <translation>पासवर्ड (&amp;W)</translation>
    </message>
    <message>
        <source>ODB&amp;C driver</source>
        <translation>ओडीबीसी ड्राइवर (&amp;C)</translation>
    </message>
    <message>
        <source>Verify the server</source>
        <translation>सर्वर सत्यापित करें</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>TLS authority file</source>
        <translation>टीएलएस प्राधिकरण फ़ाइल</translation>
    </message>
    <message>
        <source>TLS certificate file</source>
        <translation>टीएलएस प्रमाणपत्र फ़ाइल</translation>
    </message>
    <message>
        <source>TLS key file</source>
        <translation>टीएलएस कुंजी फ़ाइल</translation>
    </message>
    <message>
        <source>Index &amp;headline</source>
        <translation>सूचकांक समाचार (&amp;H)</translation>
    </message>
    <message>
        <source>Bo&amp;mbay exchange</source>
        <translation>बंबई एक्सचेंज (&amp;M)</translation>
    </message>
    <message>
        <source>Its pri&amp;ce files</source>
        <translation>उसकी भाव फ़ाइलें (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;National exchange</source>
        <translation>नेशनल एक्सचेंज (&amp;N)</translation>
    </message>
    <message>
        <source>NSE &amp;archive</source>
        <translation>NSE का संग्रह (&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Quotes, Bombay</source>
        <translation>भाव, बंबई (&amp;Q)</translation>
    </message>
    <message>
        <source>Quotes, National</source>
        <translation>भाव, नेशनल</translation>
    </message>
    <message>
        <source>An empty address is never asked.</source>
        <translation>पता ख़ाली हो तो वहाँ से कुछ नहीं मँगाया जाता।</translation>
    </message>
    <message>
        <source>Default p&amp;rinter</source>
        <translation>डिफ़ॉल्ट प्रिंटर (&amp;R)</translation>
    </message>
    <message>
        <source>The desktop&apos;s own</source>
        <translation>डेस्कटॉप का अपना</translation>
    </message>
    <message>
        <source>Pa&amp;ge size</source>
        <translation>पृष्ठ का आकार (&amp;G)</translation>
    </message>
    <message>
        <source>Every print dialog begins with them.</source>
        <translation>हर प्रिंट डायलॉग इन्हीं के साथ खुलता है।</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>सहेजें (&amp;S)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>The server is being asked ...</source>
        <translation>सर्वर से पूछा जा रहा है ...</translation>
    </message>
    <message>
        <source>Connected. The server is %1.</source>
        <translation>जुड़ गया। सर्वर %1 है।</translation>
    </message>
    <message>
        <source>The settings are saved. The other database is used when the program is started the next time.</source>
        <translation>सेटिंग सहेजी गईं। प्रोग्राम के अगली बार शुरू होने पर दूसरा डेटाबेस काम में आएगा।</translation>
    </message>
    <message>
        <source>The settings are saved.</source>
        <translation>सेटिंग सहेजी गईं।</translation>
    </message>
    <message>
        <source>The Settings were Changed. Close without Saving them?</source>
        <translation>सेटिंग बदली गई हैं। क्या बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>Bills</source>
        <translation>बिल</translation>
    </message>
    <message>
        <source>S.T.T. of a line</source>
        <translation>पंक्ति का एस.टी.टी.</translation>
    </message>
    <message>
        <source>In paise</source>
        <translation>पैसों में</translation>
    </message>
    <message>
        <source>In whole rupees, 50 paise up</source>
        <translation>पूरे रुपयों में, 50 पैसे से ऊपर की ओर</translation>
    </message>
    <message>
        <source>How it is proposed in bill windows opened from now on.</source>
        <translation>अब से खुलने वाली बिल विंडो में यह ऐसे सुझाया जाएगा।</translation>
    </message>
</context>
<context>
    <name>quorvane::tax_losses::FrmTaxLoss</name>
    <message>
        <source>Losses Brought Forward</source>
        <translation>आगे लाई गई हानियाँ</translation>
    </message>
    <message>
        <source>Losses of earlier years</source>
        <translation>पिछले वर्षों की हानियाँ</translation>
    </message>
    <message>
        <source>Add Ro&amp;w</source>
        <translation>पंक्ति जोड़ें (&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Delete Row</source>
        <translation>पंक्ति हटाएँ (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>सहेजें (&amp;U)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>What is left of losses of earlier years when %1 begins, as in the return of the year before.</source>
        <translation>%1 के आरंभ में पिछले वर्षों की हानियों में से जो शेष है, जैसा पिछले वर्ष की विवरणी में है।</translation>
    </message>
    <message>
        <source>Year of the Loss</source>
        <translation>हानि का वर्ष</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>राशि</translation>
    </message>
    <message>
        <source>No loss is brought forward into %1. Add Row enters one.</source>
        <translation>%1 में कोई हानि आगे नहीं लाई गई है। &apos;पंक्ति जोड़ें&apos; से दर्ज करें।</translation>
    </message>
    <message>
        <source>Update Successfully!</source>
        <translation>सफलतापूर्वक सहेजा गया!</translation>
    </message>
    <message>
        <source>The losses are not saved. Close without saving them?</source>
        <translation>हानियाँ सहेजी नहीं गई हैं। क्या बिना सहेजे बंद करें?</translation>
    </message>
</context>
<context>
    <name>quorvane::tax_year::RptTaxYear</name>
    <message>
        <source>Tax Year</source>
        <translation>कर वर्ष</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>किसका</translation>
    </message>
    <message>
        <source>&amp;Client</source>
        <translation>ग्राहक (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Family</source>
        <translation>परिवार (&amp;F)</translation>
    </message>
    <message>
        <source>Schedule 112&amp;A...</source>
        <translation>अनुसूची 112A (&amp;A)...</translation>
    </message>
    <message>
        <source>The upload file of schedule 112A of the return, of the client</source>
        <translation>ग्राहक की रिटर्न की अनुसूची 112A की अपलोड फ़ाइल</translation>
    </message>
    <message>
        <source>Check List</source>
        <translation>जाँच सूची</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>बिंदु</translation>
    </message>
    <message>
        <source>&amp;Open the Window That Mends It</source>
        <translation>ठीक करने वाली विंडो खोलें (&amp;O)</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>परिवार</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>बाकी</translation>
    </message>
    <message>
        <source>Hint</source>
        <translation>संकेत</translation>
    </message>
    <message>
        <source>Check List (%1)</source>
        <translation>जाँच सूची (%1)</translation>
    </message>
    <message>
        <source>The losses that %1 leaves are not brought forward into %2. Bring them forward now?</source>
        <translation>%1 से बची हानियाँ %2 में आगे नहीं लाई गई हैं। अभी आगे लाएँ?</translation>
    </message>
    <message>
        <source>The check list has %1 open points, so the figures may be wrong. Write the file all the same?</source>
        <translation>जाँच सूची में %1 बिंदु बाकी हैं, इसलिए आँकड़े गलत हो सकते हैं। फिर भी फ़ाइल लिखें?</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>%1 के रूप में सहेजा गया।</translation>
    </message>
    <message>
        <source>What is open before filing</source>
        <translation>रिटर्न भरने से पहले क्या बाकी है</translation>
    </message>
    <message>
        <source>Press Report: what is open before filing is then listed here.</source>
        <translation>&quot;रिपोर्ट&quot; दबाएँ: तब यहाँ दिखेगा कि रिटर्न भरने से पहले क्या बाकी है।</translation>
    </message>
    <message>
        <source>Nothing is open before filing.</source>
        <translation>रिटर्न भरने से पहले कुछ बाकी नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::transfers::FrmScriptTransfer</name>
    <message>
        <source>Transfer of Scripts</source>
        <translation>शेयर हस्तांतरण</translation>
    </message>
    <message>
        <source>Lots of the account</source>
        <translation>खाते के लॉट</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>&amp;From Demat A/c</source>
        <translation>डीमैट खाते से (&amp;F)</translation>
    </message>
    <message>
        <source>To</source>
        <translation>गंतव्य</translation>
    </message>
    <message>
        <source>To D&amp;emat A/c</source>
        <translation>डीमैट खाते में (&amp;E)</translation>
    </message>
    <message>
        <source>Script Name</source>
        <translation>शेयर का नाम</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>भाव</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>O&amp;wn account</source>
        <translation>अपना खाता (&amp;W)</translation>
    </message>
    <message>
        <source>Another cl&amp;ient</source>
        <translation>दूसरा ग्राहक (&amp;I)</translation>
    </message>
    <message>
        <source>From A/c</source>
        <translation>खाते से</translation>
    </message>
    <message>
        <source>To A/c</source>
        <translation>खाते में</translation>
    </message>
    <message>
        <source>To Client</source>
        <translation>ग्राहक को</translation>
    </message>
    <message>
        <source>Own Account</source>
        <translation>अपना खाता</translation>
    </message>
    <message>
        <source>Another Client</source>
        <translation>दूसरा ग्राहक</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::ClientBar</name>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>वर्ष</translation>
    </message>
    <message>
        <source>Financial Year</source>
        <translation>वित्तीय वर्ष</translation>
    </message>
    <message>
        <source>The client that windows open for (Ctrl+L)</source>
        <translation>जिस ग्राहक के लिए विंडो खुलती हैं (Ctrl+L)</translation>
    </message>
    <message>
        <source>The financial year that windows open for</source>
        <translation>जिस वित्तीय वर्ष के लिए विंडो खुलती हैं</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::FrmHelp</name>
    <message>
        <source>User Guide</source>
        <translation>उपयोगकर्ता मार्गदर्शिका</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>पीछे (&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>आगे (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Index</source>
        <translation>सूची (&amp;I)</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::FrmImportErrors</name>
    <message>
        <source>Nothing was taken in. Mend the first %1 errors, then try again:</source>
        <translation>कुछ भी आयात नहीं हुआ। पहली %1 त्रुटियाँ ठीक करके फिर कोशिश करें:</translation>
    </message>
    <message>
        <source>Nothing was taken in. Mend these errors, then try again:</source>
        <translation>कुछ भी आयात नहीं हुआ। ये त्रुटियाँ ठीक करके फिर कोशिश करें:</translation>
    </message>
    <message>
        <source>Errors in the Portfolio Folder</source>
        <translation>पोर्टफ़ोलियो फ़ोल्डर में त्रुटियाँ</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>त्रुटियाँ</translation>
    </message>
    <message>
        <source>File</source>
        <translation>फ़ाइल</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>पंक्ति</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>स्तंभ</translation>
    </message>
    <message>
        <source>What is Wrong</source>
        <translation>क्या ग़लत है</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::GuidePane</name>
    <message>
        <source>The user guide is not there. It belongs into %1.</source>
        <translation>उपयोगकर्ता मार्गदर्शिका नहीं है। उसे %1 में होना चाहिए।</translation>
    </message>
    <message>
        <source>the folder of the program</source>
        <translation>प्रोग्राम के फ़ोल्डर</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::MDIForm1</name>
    <message>
        <source>This is %1.
The program never goes to the internet by itself for another release; your supplier&apos;s page has the newest one.</source>
        <translation>यह %1 है।
प्रोग्राम नए संस्करण के लिए अपने आप इंटरनेट पर नहीं जाता; नया संस्करण आपके आपूर्तिकर्ता के पृष्ठ पर है।</translation>
    </message>
    <message>
        <source>Quorvane
For help turn to whoever gave you the program, or read the user guide that came with it (docs/user-guide).</source>
        <translation>Quorvane
सहायता के लिए उनसे पूछें जिनसे प्रोग्राम मिला, या साथ की उपयोगकर्ता मार्गदर्शिका पढ़ें (docs/user-guide)।</translation>
    </message>
    <message>
        <source>Are You Sure You Want to LogOut?</source>
        <translation>क्या आप सचमुच लॉग आउट करना चाहते हैं?</translation>
    </message>
    <message>
        <source>Do You Want to Close the Application?</source>
        <translation>क्या आप प्रोग्राम बंद करना चाहते हैं?</translation>
    </message>
    <message>
        <source>Do you Want to take BackUp of Database?</source>
        <translation>क्या आप डेटाबेस का बैकअप लेना चाहते हैं?</translation>
    </message>
    <message>
        <source>Do You want to Close the Applicaltion?</source>
        <translation>क्या आप प्रोग्राम बंद करना चाहते हैं?</translation>
    </message>
    <message>
        <source>Couldn&apos;t find Window %1</source>
        <translation>विंडो %1 नहीं मिली</translation>
    </message>
    <message>
        <source>Do you want to take BackUp of Database?</source>
        <translation>क्या आप डेटाबेस का बैकअप लेना चाहते हैं?</translation>
    </message>
    <message>
        <source>This record is not there any more.</source>
        <translation>यह रिकॉर्ड अब नहीं है।</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::MainHead</name>
    <message>
        <source>BSE Market Rate List</source>
        <translation>बीएसई बाज़ार भाव सूची</translation>
    </message>
    <message>
        <source>Starts the market-rate tool</source>
        <translation>बाज़ार भाव का प्रोग्राम शुरू करता है</translation>
    </message>
    <message>
        <source>Show Market Rates</source>
        <translation>बाज़ार भाव दिखाएँ</translation>
    </message>
    <message>
        <source>Brings the market-rate tool to the front</source>
        <translation>बाज़ार भाव का प्रोग्राम सामने लाता है</translation>
    </message>
    <message>
        <source>Check For Updates</source>
        <translation>अद्यतन जाँचें</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The code of the language, in which the names of days and months are written.</extracomment>
        <translation>hi</translation>
    </message>
    <message>
        <source>dddd, MMMM d, yyyy</source>
        <extracomment>The date as the language orders it; the letters stay as they are.</extracomment>
        <translation>dddd, d MMMM yyyy</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::MainStatus</name>
    <message>
        <source>Line</source>
        <translation>पंक्ति</translation>
    </message>
    <message>
        <source>Col</source>
        <translation>स्तंभ</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>पृष्ठ</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::MiscInfo</name>
    <message>
        <source>Miscellaneous Information</source>
        <translation>विविध जानकारी</translation>
    </message>
    <message>
        <source>Facts about the program</source>
        <translation>प्रोग्राम के बारे में तथ्य</translation>
    </message>
    <message>
        <source>What</source>
        <translation>क्या</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मान</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>प्रोग्राम</translation>
    </message>
    <message>
        <source>Application folder</source>
        <translation>प्रोग्राम का फ़ोल्डर</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>डेटाबेस</translation>
    </message>
    <message>
        <source>Set-up statements skipped</source>
        <translation>छोड़े गए सेट-अप आदेश</translation>
    </message>
    <message>
        <source>Records in %1</source>
        <translation>%1 में रिकॉर्ड</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::OpenWindows</name>
    <message>
        <source>There is no window %1.</source>
        <translation>%1 नाम की कोई विंडो नहीं है।</translation>
    </message>
    <message>
        <source>Open windows</source>
        <translation>खुली विंडो</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::OutsideTools</name>
    <message>
        <source>%1 is running already.</source>
        <translation>%1 पहले से चल रहा है।</translation>
    </message>
    <message>
        <source>Couldn&apos;t start %1. Expected the program as %2.</source>
        <translation>%1 शुरू नहीं हो सका। प्रोग्राम %2 पर होना चाहिए।</translation>
    </message>
</context>
<context>
    <name>quorvane::ui::StartPage</name>
    <message>
        <source>No client is entered yet. Begin with one of these:</source>
        <translation>अभी कोई ग्राहक दर्ज नहीं है। इनमें से किसी से शुरू करें:</translation>
    </message>
    <message>
        <source>F1 opens the user guide. This page goes with the first client.</source>
        <translation>F1 उपयोगकर्ता गाइड खोलता है। पहला ग्राहक दर्ज होते ही यह पृष्ठ हट जाता है।</translation>
    </message>
</context>
<context>
    <name>quorvane::users::frmLogin</name>
    <message>
        <source>Login</source>
        <translation>लॉगिन</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>पासवर्ड</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>नाम (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Password</source>
        <translation>पासवर्ड (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>ठीक है (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Set Up</source>
        <translation>सेट अप (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Change Password</source>
        <translation>पासवर्ड बदलें (&amp;C)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>Change Password</source>
        <translation>पासवर्ड बदलें</translation>
    </message>
    <message>
        <source>Old password</source>
        <translation>पुराना पासवर्ड</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>नया पासवर्ड</translation>
    </message>
    <message>
        <source>Confirm password</source>
        <translation>पासवर्ड दोबारा</translation>
    </message>
    <message>
        <source>&amp;Login ID</source>
        <translation>लॉगिन आईडी (&amp;L)</translation>
    </message>
    <message>
        <source>Ol&amp;d Password</source>
        <translation>पुराना पासवर्ड (&amp;D)</translation>
    </message>
    <message>
        <source>N&amp;ew Password</source>
        <translation>नया पासवर्ड (&amp;E)</translation>
    </message>
    <message>
        <source>Con&amp;firm Password</source>
        <translation>पासवर्ड दोबारा (&amp;F)</translation>
    </message>
    <message>
        <source>Cha&amp;nge</source>
        <translation>बदलें (&amp;N)</translation>
    </message>
</context>
<context>
    <name>quorvane::users::frmLoginSetUp</name>
    <message>
        <source>User Set Up</source>
        <translation>उपयोगकर्ता सेट अप</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>उपयोगकर्ता</translation>
    </message>
    <message>
        <source>Login Id</source>
        <translation>लॉगिन आईडी</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>पासवर्ड</translation>
    </message>
    <message>
        <source>&amp;Login Id</source>
        <translation>लॉगिन आईडी (&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Password</source>
        <translation>पासवर्ड (&amp;P)</translation>
    </message>
    <message>
        <source>S&amp;how passwords</source>
        <translation>पासवर्ड दिखाएँ (&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>जोड़ें (&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>सहेजें (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>हटाएँ (&amp;D)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>बंद करें (&amp;X)</translation>
    </message>
    <message>
        <source>May</source>
        <translation>अधिकार</translation>
    </message>
    <message>
        <source>En&amp;ter and change</source>
        <translation>दर्ज करना और बदलना (&amp;T)</translation>
    </message>
    <message>
        <source>D&amp;elete records</source>
        <translation>रिकॉर्ड हटाना (&amp;E)</translation>
    </message>
    <message>
        <source>Ad&amp;minister</source>
        <translation>प्रशासन (&amp;M)</translation>
    </message>
    <message>
        <source>Beside looking, may</source>
        <translation>देखने के अलावा</translation>
    </message>
    <message>
        <source>enter</source>
        <translation>दर्ज</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>हटाना</translation>
    </message>
    <message>
        <source>administer</source>
        <translation>प्रशासन</translation>
    </message>
    <message>
        <source>only look</source>
        <translation>केवल देखना</translation>
    </message>
</context>
</TS>
