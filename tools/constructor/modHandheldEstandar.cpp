#include "constructor/modHandheldEstandar.h"

#include "constructor/clsConstructorEstandar.h"
#include "data/formato/modBasesEstandar.h"

namespace modHandheldEstandar {

namespace {

constexpr qint32 Secreto = 0x10;
constexpr quint8 Chatarra = 0x28; // what real handhelds leave in the flags' low byte

ContactoPalm Contacto(const QString& xApellido, const QString& xNombre, const QString& xEmpresa) {
    ContactoPalm contacto;
    contacto.Textos[ContactoPalm::Apellido] = xApellido;
    contacto.Textos[ContactoPalm::Nombre] = xNombre;
    contacto.Textos[ContactoPalm::Empresa] = xEmpresa;
    return contacto;
}

void Telefono(ContactoPalm& xContacto, int xIndice, quint8 xEtiqueta, const QString& xNumero) {
    xContacto.Etiquetas[xIndice] = xEtiqueta;
    xContacto.Textos[ContactoPalm::Telefono1 + xIndice] = xNumero;
}

void GuardarDirecciones(const QString& xCarpeta) {
    clsConstructorEstandar base(ClaseEstandar::Direcciones);
    base.Categorias({"Unfiled", "Business", "Personal", "QuickList"});
    QStringList etiquetas(22);
    etiquetas[14] = "Birthday";
    etiquetas[15] = "Spouse";
    etiquetas[16] = "Web site";
    etiquetas[17] = "Customer ID";
    base.AjustesDirecciones(etiquetas, 23, false);

    ContactoPalm maria = Contacto("Alvarez", "María José", "Café Olé, S.L.");
    maria.Textos[ContactoPalm::Cargo] = "Owner";
    Telefono(maria, 0, ContactoPalm::Trabajo, "+34 91 555 0101");
    Telefono(maria, 1, ContactoPalm::Movil, "+34 600 555 101");
    Telefono(maria, 2, ContactoPalm::Correo, "maria@cafeole.example");
    Telefono(maria, 3, ContactoPalm::Fax, "+34 91 555 0102");
    Telefono(maria, 4, ContactoPalm::Principal, "+34 91 555 0100");
    maria.TelefonoMostrado = 1;
    maria.Textos[ContactoPalm::Direccion] = "Calle Mayor 5; 2º";
    maria.Textos[ContactoPalm::Ciudad] = "Madrid";
    maria.Textos[ContactoPalm::CodigoPostal] = "28013";
    maria.Textos[ContactoPalm::Pais] = "Spain";
    maria.Textos[ContactoPalm::Personalizado1] = "12 May";
    maria.Textos[ContactoPalm::Nota] = "Prefers calls after 10:00.\nLikes \"cortado\", no sugar.";
    base.AgregarContacto(maria, 0, 1);

    ContactoPalm tom = Contacto("Baker", "Tom", QString());
    Telefono(tom, 0, ContactoPalm::Casa, "555-0123");
    Telefono(tom, 1, ContactoPalm::Buscapersonas, "555-0199");
    Telefono(tom, 2, ContactoPalm::Otro, "555-0177");
    tom.Textos[ContactoPalm::Personalizado1 + 1] = "Ann";
    base.AgregarContacto(tom, Secreto, 2);

    ContactoPalm northwind = Contacto(QString(), QString(), "Northwind Traders");
    Telefono(northwind, 0, ContactoPalm::Principal, "(206) 555-0150");
    Telefono(northwind, 1, ContactoPalm::Correo, "orders@northwind.example");
    northwind.Textos[ContactoPalm::Personalizado1 + 2] = "https://northwind.example/a,b;c";
    northwind.Textos[ContactoPalm::Personalizado1 + 3] = "NW-0042";
    northwind.Textos[ContactoPalm::Nota] =
        "Wholesale™ account since 1998: ask for the quarterly price list, which comes as a "
        "printed booklet and as a spreadsheet\\backup on request.";
    base.AgregarContacto(northwind, 0, 1);

    ContactoPalm pat = Contacto("O'Neil", "Pat", QString());
    Telefono(pat, 0, ContactoPalm::Movil, "555-0144");
    base.AgregarContacto(pat);
    base.Guardar(xCarpeta + "/AddressDB.pdb");
}

CitaPalm Cita(const char* xDescripcion, const QDate& xDia, const QTime& xInicio,
              const QTime& xFin) {
    CitaPalm cita;
    cita.Descripcion = QString::fromUtf8(xDescripcion);
    cita.Dia = xDia;
    cita.SinHora = !xInicio.isValid();
    cita.Inicio = xInicio;
    cita.Fin = xFin;
    return cita;
}

void Repetir(CitaPalm& xCita, quint8 xTipo, quint8 xFrecuencia, const QDate& xFin) {
    xCita.Repetir = xTipo;
    xCita.Frecuencia = xFrecuencia;
    xCita.FinRepeticion = xFin;
}

void Alarma(CitaPalm& xCita, qint8 xAnticipo, quint8 xUnidad) {
    xCita.ConAlarma = true;
    xCita.Anticipo = xAnticipo;
    xCita.UnidadAlarma = xUnidad;
}

void GuardarAgenda(const QString& xCarpeta) {
    clsConstructorEstandar base(ClaseEstandar::Agenda);
    base.Categorias({});
    base.AjustesAgenda(1);

    CitaPalm reunion = Cita("Team meeting", {2021, 3, 1}, {9, 0}, {10, 0});
    Repetir(reunion, CitaPalm::Semanal, 2, {2021, 4, 30});
    reunion.DiasSemana = 0b0001010; // Monday and Wednesday
    reunion.InicioSemana = 1;
    reunion.Excepciones = {{2021, 3, 15}, {2021, 3, 17}};
    Alarma(reunion, 15, CitaPalm::Minutos);
    base.AgregarCita(reunion, 0, Chatarra);

    CitaPalm gimnasio = Cita("Gym", {2021, 3, 1}, {7, 0}, {8, 0});
    Repetir(gimnasio, CitaPalm::Diaria, 2, {2021, 3, 10});
    gimnasio.Excepciones = {{2021, 3, 5}};
    base.AgregarCita(gimnasio, 0, 0x32);

    CitaPalm alquiler = Cita("Rent", {2021, 1, 1}, {}, {});
    Repetir(alquiler, CitaPalm::MensualPorFecha, 1, {2021, 6, 1});
    alquiler.Excepciones = {{2021, 4, 1}};
    Alarma(alquiler, 1, CitaPalm::Dias);
    base.AgregarCita(alquiler, 0, 0x74);

    CitaPalm club = Cita("Book club", {2021, 1, 12}, {19, 0}, {21, 0});
    Repetir(club, CitaPalm::MensualPorDia, 1, {2021, 6, 30});
    club.SemanaDelMes = 1;
    club.DiaSemana = 2; // the second Tuesday
    club.Nota = "Bring: the book, snacks; notes, questions";
    Alarma(club, 2, CitaPalm::Horas);
    base.AgregarCita(club);

    CitaPalm paga = Cita("Payday", {2021, 1, 29}, {}, {});
    Repetir(paga, CitaPalm::MensualPorDia, 1, {2021, 12, 31});
    paga.SemanaDelMes = CitaPalm::UltimaSemana;
    paga.DiaSemana = 5; // the last Friday
    paga.Excepciones = {{2021, 7, 30}};
    base.AgregarCita(paga, 0, Chatarra);

    CitaPalm aniversario = Cita("Anniversary", {2015, 6, 20}, {}, {});
    Repetir(aniversario, CitaPalm::Anual, 1, {});
    base.AgregarCita(aniversario, Secreto);

    CitaPalm dentista = Cita("Dentist", {2021, 3, 3}, {14, 30}, {15, 15});
    dentista.Nota = "Dr. Lee\nRoom 4";
    Alarma(dentista, 30, CitaPalm::Minutos);
    base.AgregarCita(dentista);

    base.AgregarCita(Cita("Holiday", {2021, 4, 2}, {}, {}));
    base.Guardar(xCarpeta + "/DatebookDB.pdb");
}

void GuardarTareas(const QString& xCarpeta) {
    clsConstructorEstandar base(ClaseEstandar::Tareas);
    base.Categorias({"Unfiled", "Business", "Personal"});
    base.AjustesTareas(1, 1);
    base.AgregarTarea({{2021, 4, 15}, 1, false, "File taxes", "Forms 1040, W-2"}, 0, 1);
    base.AgregarTarea({{}, 3, false, "Call plumber", QString()});
    base.AgregarTarea({{2021, 2, 1}, 2, true, "Renew passport", QString()}, Secreto);
    base.AgregarTarea({{}, 5, false, "Buy milk", QString()}, 0, 2);
    base.Guardar(xCarpeta + "/ToDoDB.pdb");
}

void GuardarMemos(const QString& xCarpeta) {
    clsConstructorEstandar base(ClaseEstandar::Memos);
    base.Categorias({"Unfiled", "Business", "Personal"});
    base.AjustesMemos(true);
    base.AgregarMemo("Shopping\nEggs, milk; bread", 0, 2);
    base.AgregarMemo("Ideas for the garden\n- roses\n\t- tulips");
    base.AgregarMemo("PIN codes\nbank: 1234", Secreto, 2);
    base.Guardar(xCarpeta + "/MemoDB.pdb");
}

} // namespace

void Guardar(const QString& xCarpeta) {
    GuardarDirecciones(xCarpeta);
    GuardarAgenda(xCarpeta);
    GuardarTareas(xCarpeta);
    GuardarMemos(xCarpeta);
}

void GuardarJapones(const QString& xCarpeta) {
    const QString pagina = QStringLiteral("windows-932");
    // Another handheld: its databases were made at another moment, so their records' UIDs differ.
    const QDateTime creada(QDate(2004, 4, 1), QTime(9, 0), Qt::UTC);
    clsConstructorEstandar direcciones(ClaseEstandar::Direcciones, pagina);
    direcciones.Fechas(creada, creada, creada);
    direcciones.Categorias({"未分類", "仕事", "個人"});
    QStringList etiquetas(22);
    etiquetas[3] = "勤務先";
    etiquetas[4] = "自宅";
    etiquetas[21] = "携帯";
    direcciones.AjustesDirecciones(etiquetas, modBasesEstandar::PaisJapon, false);
    ContactoPalm yamada = Contacto("山田", "太郎", "山田商事");
    yamada.LecturaApellido = "やまだ";
    yamada.LecturaNombre = "たろう";
    yamada.LecturaEmpresa = "やまだしょうじ";
    Telefono(yamada, 0, ContactoPalm::Movil, "090-1234-5678");
    Telefono(yamada, 1, ContactoPalm::Correo, "taro@yamada.example");
    direcciones.AgregarContacto(yamada, 0, 1);
    ContactoPalm sato = Contacto("佐藤", "花子", QString());
    sato.LecturaApellido = "さとう";
    sato.LecturaNombre = "はなこ";
    Telefono(sato, 0, ContactoPalm::Casa, "03-5555-0123");
    direcciones.AgregarContacto(sato, 0, 2);
    direcciones.Guardar(xCarpeta + "/AddressDB.pdb");

    clsConstructorEstandar memos(ClaseEstandar::Memos, pagina);
    memos.Fechas(creada, creada, creada);
    memos.Categorias({"未分類"});
    memos.AjustesMemos(false);
    memos.AgregarMemo("買い物リスト\n牛乳、卵");
    memos.Guardar(xCarpeta + "/MemoDB.pdb");
}

} // namespace modHandheldEstandar
